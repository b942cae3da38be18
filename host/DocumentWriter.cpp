#include "host/DocumentWriter.h"

#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/CustomDataTypeClass.h"
#include "host/DescriptionResource.h"
#include "host/DocumentFile.h"
#include "host/HyperFile.h"
#include "host/LineObject.h"
#include "host/LineTag.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/SegmentTag.h"
#include "host/SelectionTag.h"
#include "host/SplineObject.h"
#include "host/UVWTag.h"

namespace {

using Json = DocumentWriter::Json;

Json vectorJson(const Vector& v) { return Json::array({v.x, v.y, v.z}); }

Json matrixJson(const Matrix& m) {
  Json numbers = Json::array();
  for (const Vector& v : {m.off, m.v1, m.v2, m.v3}) {
    for (Float f : {v.x, v.y, v.z}) numbers.push_back(f);
  }
  return numbers;
}

Json hyperFileValues(const HyperFile& file) {
  Json values = Json::array();
  for (const HyperFile::Value& v : file.GetValues()) {
    std::visit([&](const auto& x) { values.push_back(x); }, v);
  }
  return values;
}

String parameterName(Int32 id, Int32 classId, String* kind) {
  const DescriptionResource* description = PluginRegistry::FindDescription(classId);
  const DescriptionResource::Parameter* p = description ? description->FindById(id) : nullptr;
  if (kind) *kind = p ? p->kind : String();
  return p ? p->name : std::to_string(id);
}

}  // namespace

Json DocumentWriter::write(BaseDocument* doc) {
  fileIds_.clear();
  collectTree(doc->GetFirstObject());
  for (BaseMaterial* m = doc->GetFirstMaterial(); m; m = m->GetNext()) {
    collectLinkTargets(*m->GetDataInstance());
  }
  if (BaseObject* active = doc->GetActiveObject()) fileIds_.emplace(active->GetUniqueId(), 0);
  int next = 1;
  for (auto& [unique, id] : fileIds_) id = next++;

  Json file;
  file["format"] = DocumentFile::kFormat;
  file["version"] = DocumentFile::kVersion;
  Json settings;
  settings["fps"] = doc->GetFps();
  settings["time"] = doc->GetTime().Get();
  settings["minTime"] = doc->GetMinTime().Get();
  settings["maxTime"] = doc->GetMaxTime().Get();
  if (BaseObject* active = doc->GetActiveObject()) {
    settings["active"] = fileIds_[active->GetUniqueId()];
  }
  file["document"] = settings;
  Json materials = Json::array();
  for (BaseMaterial* m = doc->GetFirstMaterial(); m; m = m->GetNext()) {
    materials.push_back(material(m));
  }
  file["materials"] = materials;
  Json objects = Json::array();
  for (BaseObject* op = doc->GetFirstObject(); op; op = op->GetNext())
    objects.push_back(object(op));
  file["objects"] = objects;
  return file;
}

void DocumentWriter::collectLinkTargets(const BaseContainer& container) {
  for (Int32 i = 0; i < container.GetCount(); ++i) {
    const GeData* data = container.GetIndexData(i);
    if (data->GetType() == DA_ALIASLINK && data->GetLink()) {
      fileIds_.emplace(data->GetLinkId(), 0);
    } else if (const BaseContainer* nested = data->GetContainer()) {
      collectLinkTargets(*nested);
    }
  }
}

void DocumentWriter::collectTree(BaseObject* op) {
  for (; op; op = op->GetNext()) {
    collectLinkTargets(*op->GetDataInstance());
    for (BaseTag* t = op->GetFirstTag(); t; t = t->GetNext()) {
      collectLinkTargets(*t->GetDataInstance());
    }
    collectTree(op->GetDown());
  }
}

Json DocumentWriter::node(const BaseList2D* n, Int32 classId) {
  Json record;
  record["type"] = PluginRegistry::WordOf(classId);
  auto id = fileIds_.find(n->GetUniqueId());
  if (id != fileIds_.end()) record["id"] = id->second;
  record["name"] = n->GetName();
  Json params = parameters(*n->GetDataInstance(), classId);
  if (!params.empty()) record["parameters"] = params;
  return record;
}

Json DocumentWriter::parameters(const BaseContainer& container, Int32 classId) {
  Json params = Json::object();
  for (Int32 i = 0; i < container.GetCount(); ++i) {
    String kind;
    String name = parameterName(container.GetIndexId(i), classId, &kind);
    Json v = value(*container.GetIndexData(i), kind);
    if (!v.is_null()) params[name] = v;
  }
  return params;
}

Json DocumentWriter::value(const GeData& data, const String& kind) {
  switch (data.GetType()) {
    case DA_NIL:
      return nullptr;
    case DA_LONG:
      return kind == "BOOL" ? Json(data.GetBool()) : Json(data.GetInt32());
    case DA_REAL:
      return data.GetFloat();
    case DA_VECTOR:
      return {{"vector", vectorJson(data.GetVector())}};
    case DA_MATRIX:
      return {{"matrix", matrixJson(data.GetMatrix())}};
    case DA_STRING:
      return data.GetString();
    case DA_ALIASLINK: {
      auto id = data.GetLink() ? fileIds_.find(data.GetLinkId()) : fileIds_.end();
      return id == fileIds_.end() ? Json(nullptr) : Json{{"link", id->second}};
    }
    case DA_CONTAINER:
      return {{"container", parameters(*data.GetContainer(), 0)}};
    default:
      break;
  }
  CustomDataTypeClass* cls = PluginRegistry::FindCustomDataType(data.GetType());
  HyperFile file;
  if (!cls || !cls->WriteData(data.GetCustomDataType(data.GetType()), &file)) return nullptr;
  return {{"data", PluginRegistry::WordOf(data.GetType())},
          {"level", cls->GetDiskLevel()},
          {"values", hyperFileValues(file)}};
}

Json DocumentWriter::object(BaseObject* op) {
  Json record = node(op, op->GetType());
  if (op->GetMl() != Matrix()) record["matrix"] = matrixJson(op->GetMl());
  if (op->GetEditorMode() != MODE_UNDEF) record["editorMode"] = op->GetEditorMode();
  if (op->GetRenderMode() != MODE_UNDEF) record["renderMode"] = op->GetRenderMode();
  Json shape = geometry(op);
  for (auto& [key, v] : shape.items()) record[key] = v;
  Json tags = Json::array();
  for (BaseTag* t = op->GetFirstTag(); t; t = t->GetNext()) tags.push_back(tag(t));
  if (!tags.empty()) record["tags"] = tags;
  Json children = Json::array();
  for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
    children.push_back(object(child));
  }
  if (!children.empty()) record["children"] = children;
  return record;
}

Json DocumentWriter::geometry(BaseObject* op) {
  Json record = Json::object();
  auto* points = dynamic_cast<PointObject*>(op);
  if (!points) return record;
  Json list = Json::array();
  for (Int32 i = 0; i < points->GetPointCount(); ++i)
    list.push_back(vectorJson(points->GetPointR()[i]));
  record["points"] = list;
  if (auto* poly = dynamic_cast<PolygonObject*>(op)) {
    Json polygons = Json::array();
    for (Int32 i = 0; i < poly->GetPolygonCount(); ++i) {
      const CPolygon& p = poly->GetPolygonR()[i];
      polygons.push_back(p.IsTriangle() ? Json::array({p.a, p.b, p.c})
                                        : Json::array({p.a, p.b, p.c, p.d}));
    }
    record["polygons"] = polygons;
  }
  if (auto* spline = dynamic_cast<SplineObject*>(op)) {
    Json segments = Json::array();
    for (Int32 i = 0; i < spline->GetSegmentCount(); ++i) {
      segments.push_back({spline->GetSegmentR()[i].cnt, spline->GetSegmentR()[i].closed});
    }
    if (!segments.empty()) record["segments"] = segments;
  }
  return record;
}

Json DocumentWriter::tag(BaseTag* t) {
  Json record = node(t, t->GetType());
  if (auto* uvw = dynamic_cast<UVWTag*>(t)) {
    Json list = Json::array();
    for (Int32 i = 0; i < uvw->GetDataCount(); ++i) {
      UVWStruct s = uvw->GetSlow(i);
      list.push_back(
          {s.a.x, s.a.y, s.a.z, s.b.x, s.b.y, s.b.z, s.c.x, s.c.y, s.c.z, s.d.x, s.d.y, s.d.z});
    }
    record["uvw"] = list;
  } else if (auto* selection = dynamic_cast<SelectionTag*>(t)) {
    record["selection"] = selection->GetBaseSelect()->GetSelected();
  } else if (auto* line = dynamic_cast<LineTag*>(t)) {
    record["values"] =
        std::vector<Float>(line->GetDataAddressR(), line->GetDataAddressR() + line->GetDataCount());
  } else if (auto* segments = dynamic_cast<SegmentTag*>(t)) {
    Json list = Json::array();
    for (Int32 i = 0; i < segments->GetDataCount(); ++i) {
      list.push_back({segments->GetDataAddressR()[i].cnt, segments->GetDataAddressR()[i].closed});
    }
    record["segments"] = list;
  }
  return record;
}

Json DocumentWriter::material(BaseMaterial* m) {
  Json record = node(m, Mmaterial);
  Json channels = Json::array();
  for (Int32 id : m->GetChannelIds()) {
    channels.push_back({{"channel", id},
                        {"on", m->GetChannelState(id)},
                        {"parameters", parameters(m->GetChannel(id)->GetData(), 0)}});
  }
  record["channels"] = channels;
  return record;
}
