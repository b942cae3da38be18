#include "host/DocumentMesh.h"

#include <algorithm>

#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/HostConsole.h"
#include "host/ModelingCommand.h"
#include "host/PolygonObject.h"
#include "host/SelectionTag.h"
#include "host/TextureTag.h"
#include "host/UVWTag.h"

namespace {

mv::Vector3 toLibrary(const Vector& p) { return {p.x, p.z, p.y}; }

SelectionTag* selectionNamed(const PolygonObject& poly, const String& name) {
  for (BaseTag* tag = poly.GetFirstTag(); tag; tag = tag->GetNext()) {
    if (tag->GetType() == Tpolygonselection && tag->GetName() == name) {
      return static_cast<SelectionTag*>(tag);
    }
  }
  return nullptr;
}

}  // namespace

bool DocumentMesh::collect(BaseDocument* doc) {
  if (!doc) return false;
  doc->ExecutePasses(nullptr, true, true, true, 0);
  for (BaseObject* op = doc->GetFirstObject(); op; op = op->GetNext()) {
    BaseObject* state = ModelingCommand::CurrentState(op);
    if (state) collectTree(state, Matrix(), {}, MODE_ON);
    BaseObject::Free(state);
  }
  if (mesh_.polygons.empty()) {
    GePrint("The document holds no polygons to export");
    return false;
  }
  return true;
}

void DocumentMesh::collectTree(BaseObject* op, const Matrix& parent, std::vector<BaseTag*> textures,
                               int renderMode) {
  if (op->GetRenderMode() != MODE_UNDEF) renderMode = op->GetRenderMode();
  Matrix mg = parent * op->GetMl();
  for (BaseTag* tag = op->GetFirstTag(); tag; tag = tag->GetNext()) {
    if (tag->GetType() == Ttexture) textures.push_back(tag);
  }
  if (renderMode != MODE_OFF && op->IsInstanceOf(Opolygon)) {
    appendPolygons(*static_cast<PolygonObject*>(op), mg, textures);
  }
  for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
    collectTree(child, mg, textures, renderMode);
  }
}

void DocumentMesh::appendPolygons(const PolygonObject& poly, const Matrix& mg,
                                  const std::vector<BaseTag*>& textures) {
  auto firstPoint = static_cast<uint32_t>(mesh_.points.size());
  auto firstPolygon = static_cast<uint32_t>(mesh_.polygons.size());
  for (Int32 i = 0; i < poly.GetPointCount(); ++i) {
    mesh_.points.push_back(toLibrary(mg * poly.GetPointR()[i]));
  }
  std::vector<int32_t> material = materialsOf(poly, textures);
  auto* uvw = static_cast<const UVWTag*>(poly.GetTag(Tuvw));
  for (Int32 i = 0; i < poly.GetPolygonCount(); ++i) {
    const CPolygon& p = poly.GetPolygonR()[i];
    mesh_.polygons.push_back(
        {firstPoint + p.a, firstPoint + p.b, firstPoint + p.c, firstPoint + p.d, material[i]});
    UVWStruct uv = uvw ? uvw->GetSlow(i) : UVWStruct();
    mesh_.texturePolygons.push_back(
        {{uv.a.x, uv.a.y, 0}, {uv.b.x, uv.b.y, 0}, {uv.c.x, uv.c.y, 0}, {uv.d.x, uv.d.y, 0}});
  }
  for (BaseTag* tag = poly.GetFirstTag(); tag; tag = tag->GetNext()) {
    if (tag->GetType() != Tpolygonselection) continue;
    auto& selection = mesh_.selections[tag->GetName()];
    for (Int32 index : static_cast<SelectionTag*>(tag)->GetBaseSelect()->GetSelected()) {
      if (index < poly.GetPolygonCount()) selection.insert(firstPolygon + index);
    }
  }
}

std::vector<int32_t> DocumentMesh::materialsOf(const PolygonObject& poly,
                                               const std::vector<BaseTag*>& textures) {
  std::vector<int32_t> material(poly.GetPolygonCount(), -1);
  for (BaseTag* tag : textures) {
    int32_t index = materialIndex(static_cast<TextureTag*>(tag)->GetMaterial());
    String restriction = tag->GetDataInstance()->GetString(TEXTURETAG_RESTRICTION);
    if (restriction.empty()) {
      std::fill(material.begin(), material.end(), index);
    } else if (SelectionTag* selection = selectionNamed(poly, restriction)) {
      for (Int32 i : selection->GetBaseSelect()->GetSelected()) {
        if (i < poly.GetPolygonCount()) material[i] = index;
      }
    }
  }
  return material;
}

int32_t DocumentMesh::materialIndex(BaseMaterial* material) {
  if (!material) return -1;
  auto it = std::find(materialOrder_.begin(), materialOrder_.end(), material);
  if (it != materialOrder_.end()) return static_cast<int32_t>(it - materialOrder_.begin());
  BaseContainer color = material->GetChannel(CHANNEL_COLOR)->GetData();
  Vector rgb =
      color.GetVector(CHANNEL_COLOR_VALUE, Vector(0.8)) * color.GetReal(CHANNEL_BRIGHTNESS, 1.0);
  mv::ExportMaterial exported;
  exported.name = material->GetName();
  exported.red = rgb.x;
  exported.green = rgb.y;
  exported.blue = rgb.z;
  exported.textureFile = color.GetString(CHANNEL_TEXTURE);
  materials_.push_back(exported);
  materialOrder_.push_back(material);
  return static_cast<int32_t>(materials_.size() - 1);
}
