#include "source/CurveDescription.h"

#include <algorithm>

#include "host/GeResource.h"
#include "source/CurveSubParameters.h"
#include "source/CurveUnit.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

constexpr double kStep = 0.05;
constexpr int32_t kKeyMinimum = 5, kKeyMaximum = 6, kKeyStrictMinimum = 7, kKeyStrictMaximum = 8;
constexpr int32_t kKeyStep = 9, kKeyAnimate = 10, kKeyUnit = 12;

CurveDescriptionEntry entry(int32_t number, CurveDescriptionEntry::Kind kind,
                            const std::string& name) {
  CurveDescriptionEntry result;
  result.number = number;
  result.kind = kind;
  result.name = name;
  return result;
}

// The name of a field of a point: its own strings on the two end points, "[n] " and a label on
// the inner points, n being the id less one.
std::string pointName(const CurvePoint& point, int32_t first, int32_t last, int32_t other) {
  if (point.id == 0) return GeLoadString(first);
  if (point.id == 1) return GeLoadString(last);
  return "[" + std::to_string(point.id - 1) + "] " + GeLoadString(other);
}

CurveDescriptionEntry control(const CurvePoint& point, int32_t field, int32_t first, int32_t last,
                              int32_t other) {
  CurveDescriptionEntry result =
      entry(CurveSubParameters::pointNumber(point.id, field), CurveDescriptionEntry::KindReal,
            pointName(point, first, last, other));
  result.reals[kKeyStep] = kStep;
  return result;
}

}  // namespace

std::vector<CurveDescriptionEntry> CurveDescription::entries(const CurveParam& curve,
                                                             int32_t unit) {
  const int32_t code = curveUnitCode(unit);
  std::vector<CurveDescriptionEntry> result;
  for (auto [number, name] : {std::pair{CurveSubParameters::kMaximum, 10032},
                              std::pair{CurveSubParameters::kMinimum, 10034}}) {
    result.push_back(entry(number, CurveDescriptionEntry::KindReal, GeLoadString(name)));
    result.back().integers = {{kKeyUnit, code}, {kKeyAnimate, 0}};
  }
  result.push_back(
      entry(CurveSubParameters::kExpression, CurveDescriptionEntry::KindText, GeLoadString(10053)));
  std::vector<const CurvePoint*> points;
  for (int index = 0; index < curve.getPointCount(); ++index)
    points.push_back(curve.getPoint(index));
  std::sort(points.begin(), points.end(),
            [](const CurvePoint* a, const CurvePoint* b) { return a->id < b->id; });
  for (const CurvePoint* point : points) addPointEntries(*point, code, result);
  return result;
}

void CurveDescription::addPointEntries(const CurvePoint& point, int32_t unitCode,
                                       std::vector<CurveDescriptionEntry>& entries) {
  if (point.id > 1) {
    entries.push_back(entry(CurveSubParameters::pointNumber(point.id, 0),
                            CurveDescriptionEntry::KindReal,
                            "[" + std::to_string(point.id - 1) + "] X"));
    entries.back().reals = {{kKeyMinimum, 0.0}, {kKeyMaximum, 1.0}, {kKeyStep, kStep}};
    entries.back().flags = {{kKeyStrictMinimum, true}, {kKeyStrictMaximum, true}};
  }
  entries.push_back(control(point, 1, 10035, 10036, 10030));
  entries.back().integers[kKeyUnit] = unitCode;
  entries.push_back(entry(CurveSubParameters::pointNumber(point.id, 2),
                          CurveDescriptionEntry::KindInteger,
                          pointName(point, 10037, 10038, 10039)));
  entries.back().integers[kKeyAnimate] = 0;
  for (int32_t type = mv::PointCorner; type <= mv::PointFree; ++type) {
    entries.back().choices.emplace_back(type, GeLoadString(10095 + type));
  }
  if (point.type <= mv::PointSmooth) return;
  if (point.id != 0) {
    entries.push_back(control(point, 3, 0, 10041, 10042));
    entries.push_back(control(point, 4, 0, 10044, 10045));
    entries.back().integers[kKeyUnit] = unitCode;
  }
  if (point.id != 1) {
    entries.push_back(control(point, 5, 10046, 0, 10048));
    entries.push_back(control(point, 6, 10049, 0, 10051));
    entries.back().integers[kKeyUnit] = unitCode;
  }
}
