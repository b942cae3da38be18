#include "commands/DocumentParameters.h"

#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

#include "curves/CurveParam.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DescriptionResource.h"
#include "host/PluginRegistry.h"
#include "source/C4dParameterSet.h"
#include "source/PluginIds.h"

namespace {

std::string formatNumber(double value) {
  std::ostringstream text;
  text.precision(15);
  text << value;
  return text.str();
}

// A finite number filling the whole text.
bool parseNumber(const std::string& text, double& value) {
  if (text.empty()) return false;
  char* end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size() && std::isfinite(value);
}

bool parseInteger(const std::string& text, Int32& value) {
  double number = 0.0;
  if (!parseNumber(text, number) || number != std::floor(number) || std::abs(number) > 2e9) {
    return false;
  }
  value = static_cast<Int32>(number);
  return true;
}

bool parseBool(const std::string& text, bool& value) {
  if (text == "true" || text == "1") {
    value = true;
  } else if (text == "false" || text == "0") {
    value = false;
  } else {
    return false;
  }
  return true;
}

bool isCurveKind(const String& kind) { return kind == std::to_string(ID_CURVE_DATA_TYPE); }

BaseObject* childNamed(BaseObject* first, const std::string& name) {
  for (BaseObject* object = first; object != nullptr; object = object->GetNext()) {
    if (object->GetName() == name) return object;
  }
  return nullptr;
}

std::string curvePoints(const mv::CurveParam& curve) {
  std::string text;
  for (int i = 0; i < curve.getPointCount(); ++i) {
    const mv::CurvePoint* point = curve.getPoint(i);
    if (!text.empty()) text += ",";
    text += formatNumber(point->x) + ":" + formatNumber(point->y);
  }
  return text;
}

std::string curvePart(const mv::CurveParam& curve, const String& part) {
  if (part == "points") return curvePoints(curve);
  if (part == "minimum") return formatNumber(curve.minimum());
  if (part == "maximum") return formatNumber(curve.maximum());
  std::string expression;
  curve.getExpression(expression);
  return expression;
}

// "x:y,x:y,...": the first pair is the start, the last the end, the others smooth inner
// points; at least two pairs, x rising from 0 to 1.
bool parsePoints(const std::string& text, std::map<double, double>& points) {
  std::stringstream pairs(text);
  std::string pair;
  double lastX = -1.0;
  while (std::getline(pairs, pair, ',')) {
    const size_t colon = pair.find(':');
    double x = 0.0;
    double y = 0.0;
    if (colon == std::string::npos || !parseNumber(pair.substr(0, colon), x) ||
        !parseNumber(pair.substr(colon + 1), y) || x <= lastX || x < 0.0 || x > 1.0) {
      return false;
    }
    points[x] = y;
    lastX = x;
  }
  return points.size() >= 2 && points.begin()->first == 0.0 && points.rbegin()->first == 1.0;
}

bool writeCurvePart(mv::CurveParam& curve, const String& part, const std::string& value,
                    std::string& error) {
  double number = 0.0;
  if (part == "expression") {
    if (curve.setExpression(value)) return true;
    error = "not an expression: " + value;
    return false;
  }
  if (part == "minimum" || part == "maximum") {
    if (!parseNumber(value, number)) {
      error = "not a number: " + value;
      return false;
    }
    part == "minimum" ? curve.setMinimum(number) : curve.setMaximum(number);
    return true;
  }
  std::map<double, double> points;
  if (!parsePoints(value, points)) {
    error = "points are x:y pairs from x 0 to x 1, separated by commas: " + value;
    return false;
  }
  mv::CurveParam shaped(curve.minimum(), curve.maximum(), points, true);
  std::string expression;
  curve.getExpression(expression);
  shaped.setExpression(expression);
  shaped.setFixedLimits(curve.fixedLimits());
  curve = shaped;
  return true;
}

}  // namespace

BaseObject* findObject(BaseDocument* document, const std::string& path) {
  std::stringstream names(path);
  std::string name;
  BaseObject* found = nullptr;
  BaseObject* level = document->GetFirstObject();
  while (std::getline(names, name, '/')) {
    found = childNamed(level, name);
    if (found == nullptr) return nullptr;
    level = found->GetDown();
  }
  return found;
}

std::string objectPath(BaseObject* object) {
  std::string path = object->GetName();
  for (BaseObject* up = object->GetUp(); up != nullptr; up = up->GetUp()) {
    path = up->GetName() + "/" + path;
  }
  return path;
}

bool resolveParameter(BaseDocument* document, const std::string& text, ParameterAddress& address,
                      std::string& error) {
  const size_t slash = text.rfind('/');
  const size_t dot = text.find('.', slash == std::string::npos ? 0 : slash);
  if (dot == std::string::npos) {
    error = "expected PATH.parameter: " + text;
    return false;
  }
  const std::string path = text.substr(0, dot);
  address.object = findObject(document, path);
  if (address.object == nullptr) {
    error = "no object at " + path;
    return false;
  }
  std::string name = text.substr(dot + 1);
  const size_t partDot = name.find('.');
  address.part = partDot == std::string::npos ? "" : name.substr(partDot + 1);
  name = name.substr(0, partDot);
  const DescriptionResource* description =
      PluginRegistry::FindDescription(address.object->GetType());
  const DescriptionResource::Parameter* parameter =
      description != nullptr ? description->FindByName(name) : nullptr;
  if (parameter == nullptr) {
    error = path + " has no parameter " + name;
    return false;
  }
  address.id = parameter->id;
  address.kind = parameter->kind;
  address.name = parameter->name;
  const bool knownPart = address.part.empty() || address.part == "points" ||
                         address.part == "minimum" || address.part == "maximum" ||
                         address.part == "expression";
  if (!address.part.empty() && (!isCurveKind(address.kind) || !knownPart)) {
    error = name + " has no part " + address.part;
    return false;
  }
  return true;
}

std::string readParameter(BaseDocument* document, const ParameterAddress& address) {
  BaseContainer* data = address.object->GetDataInstance();
  if (isCurveKind(address.kind)) {
    mv::CurveParam* curve = C4dParameterSet::curveIn(data, address.id);
    if (curve == nullptr) return "(no curve)";
    if (!address.part.empty()) return curvePart(*curve, address.part);
    std::string text;
    for (const char* part : {"points", "minimum", "maximum", "expression"}) {
      text += std::string(part) + " " + curvePart(*curve, part) + "\n";
    }
    text.pop_back();
    return text;
  }
  if (address.kind == "REAL") return formatNumber(data->GetReal(address.id));
  if (address.kind == "LONG") return std::to_string(data->GetLong(address.id));
  if (address.kind == "BOOL") return data->GetBool(address.id) ? "true" : "false";
  if (address.kind == "LINK") {
    BaseObject* link = data->GetObjectLink(address.id, document);
    return link != nullptr ? objectPath(link) : "(none)";
  }
  return data->GetString(address.id);
}

bool writeParameter(BaseDocument* document, const ParameterAddress& address,
                    const std::string& value, std::string& error) {
  GeData data;
  if (isCurveKind(address.kind)) {
    mv::CurveParam* stored =
        C4dParameterSet::curveIn(address.object->GetDataInstance(), address.id);
    mv::CurveParam curve = stored != nullptr ? *stored : mv::CurveParam();
    if (address.part.empty()) {
      error = "a curve is set by its parts: " + address.name +
              ".points, .minimum, .maximum or "
              ".expression";
      return false;
    }
    if (!writeCurvePart(curve, address.part, value, error)) return false;
    C4dParameterSet::storeCurve(address.object->GetDataInstance(), address.id, curve);
    address.object->SetDirty(DIRTYFLAGS_DATA);
    return true;
  }
  double number = 0.0;
  Int32 integer = 0;
  bool flag = false;
  if (address.kind == "REAL" && parseNumber(value, number)) {
    data = GeData(number);
  } else if (address.kind == "LONG" && parseInteger(value, integer)) {
    data = GeData(integer);
  } else if (address.kind == "BOOL" && parseBool(value, flag)) {
    data = GeData(flag);
  } else if (address.kind == "LINK") {
    BaseObject* link = findObject(document, value);
    if (link == nullptr && value != "none") {
      error = "no object at " + value;
      return false;
    }
    data = GeData(static_cast<BaseList2D*>(link));
  } else if (address.kind == "STRING") {
    data = GeData(value);
  } else {
    error = "not a value for " + address.name + " (" + address.kind + "): " + value;
    return false;
  }
  DESCFLAGS_SET flags = 0;
  address.object->SetParameter(DescID(address.id), data, flags);
  return true;
}
