#include "host/DocumentReader.h"

#include <cmath>

#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/CustomDataTypeClass.h"
#include "host/DescriptionResource.h"
#include "host/DocumentFile.h"
#include "host/HostConsole.h"
#include "host/HyperFile.h"
#include "host/LineTag.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/SegmentTag.h"
#include "host/SelectionTag.h"
#include "host/SplineObject.h"
#include "host/UVWTag.h"

namespace {

using Json = DocumentReader::Json;
constexpr int kMaxWarnings = 20;

const Json& emptyArray() {
  static const Json empty = Json::array();
  return empty;
}

bool isNumberArray(const Json& json, size_t size) {
  if (!json.is_array() || json.size() != size) return false;
  for (const Json& x : json) {
    if (!x.is_number() || !std::isfinite(x.get<double>())) return false;
  }
  return true;
}

Vector toVector(const Json& json) {
  return {json[0].get<double>(), json[1].get<double>(), json[2].get<double>()};
}

Matrix toMatrix(const Json& json) {
  auto at = [&](int i) {
    return Vector(json[i].get<double>(), json[i + 1].get<double>(), json[i + 2].get<double>());
  };
  return Matrix(at(0), at(3), at(6), at(9));
}

Int32 classOf(PluginKind kind, const Json& type) {
  if (type.is_number_integer()) {
    const PluginEntry* entry = PluginRegistry::Find(type.get<Int32>());
    return entry && entry->kind == kind ? entry->id : 0;
  }
  if (!type.is_string()) return 0;
  const PluginEntry* entry = PluginRegistry::FindByWord(kind, type.get<String>());
  return entry ? entry->id : 0;
}

// A parameter key: a name of the class's description, or an id in decimal.
bool parameterId(const String& key, Int32 classId, Int32& id, String& kind) {
  const DescriptionResource* description = PluginRegistry::FindDescription(classId);
  if (const DescriptionResource::Parameter* p =
          description ? description->FindByName(key) : nullptr) {
    id = p->id;
    kind = p->kind;
    return true;
  }
  if (key.empty() || key.size() > 10 || key.find_first_not_of("-0123456789") != String::npos)
    return false;
  long long number = std::stoll(key);
  if (number < INT32_MIN || number > INT32_MAX) return false;
  id = static_cast<Int32>(number);
  const DescriptionResource::Parameter* p = description ? description->FindById(id) : nullptr;
  kind = p ? p->kind : String();
  return true;
}

const Json* member(const Json& record, const char* key) {
  auto it = record.find(key);
  return it == record.end() ? nullptr : &*it;
}

String describe(const Json& record) {
  const Json* name = member(record, "name");
  return name && name->is_string() ? "\"" + name->get<String>() + "\"" : String("an unnamed node");
}

}  // namespace

void DocumentReader::warn(const String& line) {
  if (++warnings_ <= kMaxWarnings) GePrint("Document: " + line);
  if (warnings_ == kMaxWarnings + 1) GePrint("Document: further problems are not listed");
}

BaseDocument* DocumentReader::read(const Json& file, String& error) {
  const Json* format = file.is_object() ? member(file, "format") : nullptr;
  if (!format || *format != DocumentFile::kFormat) {
    error = "it is not a Morvo document (no \"format\": \"morvo document\")";
    return nullptr;
  }
  const Json* version = member(file, "version");
  if (!version || !version->is_number_integer() || version->get<int>() < 1 ||
      version->get<int>() > DocumentFile::kVersion) {
    error = "its version is not one this program reads (1 to " +
            std::to_string(DocumentFile::kVersion) + ")";
    return nullptr;
  }
  doc_ = BaseDocument::Alloc();
  if (const Json* settings = member(file, "document")) readSettings(*settings);
  BaseMaterial* lastMaterial = nullptr;
  if (const Json* materials = member(file, "materials"); materials && materials->is_array()) {
    for (const Json& record : *materials) {
      BaseMaterial* m = readMaterial(record);
      if (m) doc_->InsertMaterial(m, lastMaterial);
      if (m) lastMaterial = m;
    }
  }
  BaseObject* last = nullptr;
  if (const Json* objects = member(file, "objects"); objects && objects->is_array()) {
    for (const Json& record : *objects) {
      BaseObject* op = readObject(record, 0);
      if (op) doc_->InsertObject(op, nullptr, last);
      if (op) last = op;
    }
  }
  resolveLinks();
  return doc_;
}

void DocumentReader::readSettings(const Json& settings) {
  if (!settings.is_object()) return warn("\"document\" is not an object");
  auto number = [&](const char* key, double fallback) {
    const Json* v = member(settings, key);
    return v && v->is_number() ? v->get<double>() : fallback;
  };
  doc_->SetFps(static_cast<Int32>(std::clamp(number("fps", 30), 1.0, 1000.0)));
  doc_->SetTime(BaseTime(number("time", 0.0)));
  doc_->SetMinTime(BaseTime(number("minTime", 0.0)));
  doc_->SetMaxTime(BaseTime(number("maxTime", 3.0)));
  if (const Json* active = member(settings, "active")) active_ = *active;
}

void DocumentReader::readNode(const Json& record, BaseList2D* node, Int32 classId) {
  if (const Json* name = member(record, "name"); name && name->is_string()) node->SetName(*name);
  if (const Json* id = member(record, "id")) {
    if (id->is_number_integer()) byFileId_[id->get<Int64>()] = node;
  }
  if (const Json* params = member(record, "parameters")) {
    readParameters(*params, *node->GetDataInstance(), classId, node, {});
  }
}

void DocumentReader::readParameters(const Json& params, BaseContainer& container, Int32 classId,
                                    BaseList2D* node, std::vector<Int32> path) {
  if (!params.is_object()) return warn("parameters of " + node->GetName() + " are not an object");
  if (path.size() > 32) return warn("containers of " + node->GetName() + " are nested too deeply");
  for (const auto& [key, json] : params.items()) {
    Int32 id = 0;
    String kind;
    if (!parameterId(key, classId, id, kind)) {
      warn("\"" + node->GetName() + "\" has no parameter \"" + key + "\"");
      continue;
    }
    std::vector<Int32> at = path;
    at.push_back(id);
    GeData value;
    if (const Json* nested = json.is_object() ? member(json, "container") : nullptr) {
      BaseContainer inner;
      readParameters(*nested, inner, 0, node, at);
      container.SetContainer(id, inner);
    } else if (readValue(json, kind, value, node, at)) {
      container.SetData(id, value);
    } else {
      warn("parameter \"" + key + "\" of \"" + node->GetName() + "\" has a value it cannot take");
    }
  }
}

bool DocumentReader::readValue(const Json& json, const String&, GeData& value, BaseList2D* node,
                               const std::vector<Int32>& path) {
  if (json.is_boolean()) {
    value = GeData(json.get<bool>());
  } else if (json.is_number_integer()) {
    long long v = json.get<long long>();
    if (v < INT32_MIN || v > INT32_MAX) return false;
    value = GeData(static_cast<Int32>(v));
  } else if (json.is_number()) {
    value = GeData(json.get<double>());
  } else if (json.is_string()) {
    value = GeData(json.get<String>());
  } else if (!json.is_object() || (json.size() != 1 && !member(json, "data"))) {
    return false;
  } else if (const Json* v = member(json, "vector")) {
    if (!isNumberArray(*v, 3)) return false;
    value = GeData(toVector(*v));
  } else if (const Json* m = member(json, "matrix")) {
    if (!isNumberArray(*m, 12)) return false;
    value = GeData(toMatrix(*m));
  } else if (const Json* link = member(json, "link")) {
    if (!linksAllowed_) return false;
    links_.push_back({node->GetUniqueId(), path, *link});
    value = GeData(static_cast<BaseList2D*>(nullptr));
  } else {
    return readCustom(json, value);
  }
  return true;
}

bool DocumentReader::readCustom(const Json& json, GeData& value) {
  const Json* type = member(json, "data");
  const Json* level = member(json, "level");
  const Json* values = member(json, "values");
  Int32 typeId = type ? classOf(PluginKind::CustomDataType, *type) : 0;
  CustomDataTypeClass* cls = PluginRegistry::FindCustomDataType(typeId);
  if (!cls || !level || !level->is_number_integer() || !values || !values->is_array()) return false;
  std::vector<HyperFile::Value> sequence;
  for (const Json& v : *values) {
    if (v.is_number_integer() && v.get<long long>() >= INT32_MIN &&
        v.get<long long>() <= INT32_MAX) {
      sequence.emplace_back(static_cast<Int32>(v.get<long long>()));
    } else if (v.is_number()) {
      sequence.emplace_back(v.get<double>());
    } else if (v.is_string()) {
      sequence.emplace_back(v.get<String>());
    } else {
      return false;
    }
  }
  HyperFile file;
  file.SetValues(std::move(sequence));
  CustomDataType* data = cls->AllocData();
  bool ok = data && cls->ReadData(data, &file, level->get<Int32>());
  if (ok) value = GeData(typeId, *data);
  if (data) cls->FreeData(data);
  return ok;
}

BaseMaterial* DocumentReader::readMaterial(const Json& record) {
  if (!record.is_object()) return warn("a material is not an object"), nullptr;
  BaseMaterial* m = BaseMaterial::Alloc(Mmaterial);
  readNode(record, m, Mmaterial);
  const Json* channels = member(record, "channels");
  for (const Json& channel : channels && channels->is_array() ? *channels : emptyArray()) {
    const Json* id = channel.is_object() ? member(channel, "channel") : nullptr;
    if (!id || !id->is_number_integer() || id->get<long long>() < 0 || id->get<long long>() > 100) {
      warn("a channel of material \"" + m->GetName() + "\" has no channel number");
      continue;
    }
    Int32 number = id->get<Int32>();
    if (const Json* on = member(channel, "on"); on && on->is_boolean())
      m->SetChannelState(number, *on);
    if (const Json* params = member(channel, "parameters")) {
      BaseContainer data;
      linksAllowed_ = false;  // a channel is no node a link can be kept on
      readParameters(*params, data, 0, m, {});
      linksAllowed_ = true;
      m->GetChannel(number)->SetData(data);
    }
  }
  return m;
}

BaseObject* DocumentReader::readObject(const Json& record, int depth) {
  if (!record.is_object()) return warn("an object is not an object"), nullptr;
  if (depth >= DocumentFile::kMaxDepth) {
    warn("objects below " + describe(record) + " are nested too deeply and are left out");
    return nullptr;
  }
  const Json* type = member(record, "type");
  Int32 classId = type ? classOf(PluginKind::Object, *type) : 0;
  BaseObject* op = classId ? BaseObject::Alloc(classId) : nullptr;
  if (!op) {
    warn(describe(record) + " has an unknown type " + (type ? type->dump() : String("(none)")) +
         " and is left out");
    return nullptr;
  }
  readNode(record, op, classId);
  if (const Json* m = member(record, "matrix")) {
    if (isNumberArray(*m, 12))
      op->SetMl(toMatrix(*m));
    else
      warn("the matrix of \"" + op->GetName() + "\" is not 12 numbers");
  }
  for (const char* key : {"editorMode", "renderMode"}) {
    const Json* mode = member(record, key);
    if (!mode) continue;
    Int32 value = mode->is_number_integer() ? mode->get<Int32>() : -1;
    if (value < MODE_ON || value > MODE_UNDEF)
      warn(String(key) + " of \"" + op->GetName() + "\" is not 0, 1 or 2");
    else if (key[0] == 'e')
      op->SetEditorMode(value);
    else
      op->SetRenderMode(value);
  }
  if (!readGeometry(record, op))
    warn("the points or polygons of \"" + op->GetName() + "\" are broken and left out");
  if (const Json* tags = member(record, "tags"); tags && tags->is_array()) {
    BaseTag* last = nullptr;
    for (const Json& t : *tags) {
      if (BaseTag* tag = readTag(t, op)) {
        op->InsertTag(tag, last);
        last = tag;
      }
    }
  }
  if (const Json* children = member(record, "children"); children && children->is_array()) {
    for (const Json& child : *children) {
      if (BaseObject* c = readObject(child, depth + 1)) c->InsertUnderLast(op);
    }
  }
  return op;
}

bool DocumentReader::readGeometry(const Json& record, BaseObject* op) {
  auto* points = dynamic_cast<PointObject*>(op);
  const Json* list = member(record, "points");
  if (!points || !list) return true;
  if (!list->is_array() || list->size() > size_t(VariableTag::kMaxCount)) return false;
  std::vector<Vector> read;
  for (const Json& p : *list) {
    if (!isNumberArray(p, 3)) return false;
    read.push_back(toVector(p));
  }
  Int32 count = static_cast<Int32>(read.size());
  if (auto* poly = dynamic_cast<PolygonObject*>(op)) {
    const Json* polygons = member(record, "polygons");
    std::vector<CPolygon> faces;
    for (const Json& f : polygons && polygons->is_array() ? *polygons : emptyArray()) {
      if (!f.is_array() || f.size() < 3 || f.size() > 4) return false;
      Int32 c[4];
      for (size_t k = 0; k < 4; ++k) {
        const Json& v = f[std::min(k, f.size() - 1)];
        if (!v.is_number_integer() || v.get<long long>() < 0 || v.get<long long>() >= count)
          return false;
        c[k] = v.get<Int32>();
      }
      faces.emplace_back(c[0], c[1], c[2], c[3]);
    }
    if (!poly->ResizeObject(count, static_cast<Int32>(faces.size()))) return false;
    std::copy(faces.begin(), faces.end(), poly->GetPolygonW());
  } else if (auto* spline = dynamic_cast<SplineObject*>(op)) {
    const Json* segments = member(record, "segments");
    std::vector<Segment> runs;
    long long total = 0;
    for (const Json& s : segments && segments->is_array() ? *segments : emptyArray()) {
      if (!s.is_array() || s.size() != 2 || !s[0].is_number_integer() || !s[1].is_boolean())
        return false;
      total += s[0].get<long long>();
      if (s[0].get<long long>() < 0 || total > count) return false;
      runs.push_back({s[0].get<Int32>(), s[1].get<bool>()});
    }
    if (!spline->ResizeObject(count, static_cast<Int32>(runs.size()))) return false;
    std::copy(runs.begin(), runs.end(), spline->GetSegmentW());
  } else if (!points->ResizePoints(count)) {
    return false;
  }
  std::copy(read.begin(), read.end(), points->GetPointW());
  op->Message(MSG_UPDATE);
  return true;
}

BaseTag* DocumentReader::readTag(const Json& record, BaseObject* op) {
  if (!record.is_object())
    return warn("a tag of \"" + op->GetName() + "\" is not an object"), nullptr;
  const Json* type = member(record, "type");
  Int32 classId = type ? classOf(PluginKind::Tag, *type) : 0;
  BaseTag* tag = classId ? BaseTag::Alloc(classId) : nullptr;
  if (!tag) {
    warn("a tag of \"" + op->GetName() + "\" has an unknown type and is left out");
    return nullptr;
  }
  readNode(record, tag, classId);
  readTagData(record, tag);
  return tag;
}

void DocumentReader::readTagData(const Json& record, BaseTag* tag) {
  const Json* list = nullptr;
  auto listOf = [&](const char* key) {
    list = member(record, key);
    return list && list->is_array() && list->size() <= size_t(VariableTag::kMaxCount);
  };
  if (auto* uvw = dynamic_cast<UVWTag*>(tag); uvw && listOf("uvw")) {
    uvw->Resize(static_cast<Int32>(list->size()));
    for (size_t i = 0; i < list->size(); ++i) {
      const Json& c = (*list)[i];
      if (!isNumberArray(c, 12)) return warn("a UVW entry is not 12 numbers");
      uvw->SetSlow(
          static_cast<Int32>(i),
          {{c[0], c[1], c[2]}, {c[3], c[4], c[5]}, {c[6], c[7], c[8]}, {c[9], c[10], c[11]}});
    }
  } else if (auto* selection = dynamic_cast<SelectionTag*>(tag); selection && listOf("selection")) {
    for (const Json& i : *list) {
      if (!i.is_number_integer() || i.get<long long>() < 0 || i.get<long long>() > INT32_MAX)
        return warn("a selection holds no element number");
      selection->GetBaseSelect()->Select(i.get<Int32>());
    }
  } else if (auto* line = dynamic_cast<LineTag*>(tag); line && listOf("values")) {
    line->Resize(static_cast<Int32>(list->size()));
    for (size_t i = 0; i < list->size(); ++i) {
      line->GetDataAddressW()[i] = (*list)[i].is_number() ? (*list)[i].get<double>() : 0.0;
    }
  } else if (auto* segments = dynamic_cast<SegmentTag*>(tag); segments && listOf("segments")) {
    segments->Resize(static_cast<Int32>(list->size()));
    for (size_t i = 0; i < list->size(); ++i) {
      const Json& s = (*list)[i];
      if (!s.is_array() || s.size() != 2 || !s[0].is_number_integer() || !s[1].is_boolean())
        return warn("a segment is not [count, closed]");
      segments->GetDataAddressW()[i] = {std::max(0, s[0].get<Int32>()), s[1].get<bool>()};
    }
  }
}

BaseList2D* DocumentReader::resolve(const Json& target) const {
  if (target.is_number_integer()) {
    auto it = byFileId_.find(target.get<Int64>());
    return it == byFileId_.end() ? nullptr : it->second;
  }
  if (!target.is_string()) return nullptr;
  String path = target.get<String>();
  BaseObject* at = nullptr;
  BaseObject* level = doc_->GetFirstObject();
  for (size_t start = 0; start <= path.size();) {
    size_t slash = std::min(path.find('/', start), path.size());
    String name = path.substr(start, slash - start);
    at = nullptr;
    for (BaseObject* op = level; op; op = op->GetNext()) {
      if (op->GetName() == name) {
        at = op;
        break;
      }
    }
    if (!at) break;
    level = at->GetDown();
    start = slash + 1;
  }
  if (at) return at;
  return doc_->SearchMaterial(path);
}

void DocumentReader::resolveLinks() {
  for (const PendingLink& link : links_) {
    BaseList2D* node = BaseList2D::FindByUniqueId(link.node);
    BaseList2D* target = resolve(link.target);
    if (!target) {
      warn("a link of \"" + (node ? node->GetName() : String()) +
           "\" names nothing: " + link.target.dump());
    }
    BaseContainer* container = node ? node->GetDataInstance() : nullptr;
    for (size_t i = 0; container && i + 1 < link.path.size(); ++i) {
      container = container->GetContainerInstance(link.path[i]);
    }
    if (container) container->SetLink(link.path.back(), target);
  }
  if (!active_.is_null()) doc_->SetActiveObject(dynamic_cast<BaseObject*>(resolve(active_)));
}
