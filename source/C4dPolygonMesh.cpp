#include "source/C4dPolygonMesh.h"

#include <algorithm>
#include <string>

#include "host/BaseTag.h"
#include "host/HostConsole.h"
#include "host/HostIds.h"
#include "source/MatrixConversion.h"

namespace {

// Texture coordinates keep their axes: they are no points of the scene.
Vector uvwOf(const mv::Vector3& value) { return {value.x, value.y, value.z}; }

}  // namespace

C4dPolygonMesh::C4dPolygonMesh(PolygonObject* object)
    : polygonObject(object),
      pointCount(object != nullptr ? static_cast<uint32_t>(object->GetPointCount()) : 0),
      polygonCount(object != nullptr ? static_cast<uint32_t>(object->GetPolygonCount()) : 0) {}

PolygonObject* C4dPolygonMesh::detach() {
  if (!finish()) return nullptr;
  PolygonObject* object = polygonObject;
  polygonObject = nullptr;
  uvwTag = nullptr;
  selectionTags.clear();
  pointCount = 0;
  polygonCount = 0;
  return object;
}

uint32_t C4dPolygonMesh::getPointCount() const {
  return polygonObject != nullptr ? static_cast<uint32_t>(polygonObject->GetPointCount()) : 0;
}

uint32_t C4dPolygonMesh::getPolygonCount() const {
  return polygonObject != nullptr ? static_cast<uint32_t>(polygonObject->GetPolygonCount()) : 0;
}

void C4dPolygonMesh::getPoint(uint32_t index, mv::Vector3& out) const {
  out =
      index < getPointCount() ? toLibraryVector(polygonObject->GetPointR()[index]) : mv::Vector3();
}

void C4dPolygonMesh::getPolygon(uint32_t index, mv::MeshPolygon& out) const {
  if (index >= getPolygonCount()) return;
  const CPolygon& polygon = polygonObject->GetPolygonR()[index];
  out.a = static_cast<uint32_t>(polygon.a);
  out.b = static_cast<uint32_t>(polygon.b);
  out.c = static_cast<uint32_t>(polygon.c);
  out.d = static_cast<uint32_t>(polygon.d);
}

void C4dPolygonMesh::getTexturePolygon(uint32_t index, mv::TexturePolygon& out) const {
  out = mv::TexturePolygon();
  if (uvwTag == nullptr || index >= getPolygonCount()) return;
  const UVWStruct uvw = uvwTag->GetSlow(static_cast<Int32>(index));
  out.a = {uvw.a.x, uvw.a.y, uvw.a.z};
  out.b = {uvw.b.x, uvw.b.y, uvw.b.z};
  out.c = {uvw.c.x, uvw.c.y, uvw.c.z};
  out.d = {uvw.d.x, uvw.d.y, uvw.d.z};
}

bool C4dPolygonMesh::allocate(uint32_t points, uint32_t polygons, uint32_t& firstPoint,
                              uint32_t& firstPolygon) {
  firstPoint = pointCount;
  firstPolygon = polygonCount;
  if (polygonObject == nullptr) {
    polygonObject = PolygonObject::Alloc(static_cast<Int32>(points), static_cast<Int32>(polygons));
    if (polygonObject == nullptr) {
      GePrint("Morvo 5 ERROR: C4dPolygonMesh Memory Allocation failed!");
      return false;
    }
    uvwTag = static_cast<UVWTag*>(
        polygonObject->MakeVariableTag(Tuvw, static_cast<Int32>(polygons), nullptr));
    pointCount = points;
    polygonCount = polygons;
    return true;
  }
  const uint32_t pointCapacity = static_cast<uint32_t>(polygonObject->GetPointCount());
  const uint32_t polygonCapacity = static_cast<uint32_t>(polygonObject->GetPolygonCount());
  auto grown = [](uint32_t capacity, uint32_t needed) {
    return needed > capacity ? std::max(needed, capacity * 2) : capacity;
  };
  const uint32_t newPoints = grown(pointCapacity, pointCount + points);
  const uint32_t newPolygons = grown(polygonCapacity, polygonCount + polygons);
  pointCount += points;
  polygonCount += polygons;
  if (newPoints == pointCapacity && newPolygons == polygonCapacity) return true;
  return polygonObject->ResizeObject(static_cast<Int32>(newPoints),
                                     static_cast<Int32>(newPolygons));
}

bool C4dPolygonMesh::finish() {
  if (polygonObject == nullptr) return false;
  if (static_cast<uint32_t>(polygonObject->GetPointCount()) != pointCount ||
      static_cast<uint32_t>(polygonObject->GetPolygonCount()) != polygonCount) {
    polygonObject->ResizeObject(static_cast<Int32>(pointCount), static_cast<Int32>(polygonCount));
    polygonObject->Message(MSG_UPDATE, nullptr);
  }
  return true;
}

bool C4dPolygonMesh::setPoint(uint32_t index, const mv::Vector3& point) {
  if (index >= pointCount || index >= getPointCount()) {
    GePrint("Alarm Point " + std::to_string(index));
    return false;
  }
  polygonObject->GetPointW()[index] = toHostVector(point);
  return true;
}

bool C4dPolygonMesh::setPolygon(uint32_t index, const mv::MeshPolygon& polygon) {
  if (index >= polygonCount || index >= getPolygonCount()) {
    GePrint("Alarm CPolygon[" + std::to_string(index) + "] (" + std::to_string(polygon.a) + ", " +
            std::to_string(polygon.b) + ", " + std::to_string(polygon.c) + ", " +
            std::to_string(polygon.d) + ")");
    return false;
  }
  polygonObject->GetPolygonW()[index] =
      CPolygon(static_cast<Int32>(polygon.a), static_cast<Int32>(polygon.b),
               static_cast<Int32>(polygon.c), static_cast<Int32>(polygon.d));
  if (polygon.material < 0) return true;
  SelectionTag* tag = materialSelection(polygon.material);
  if (tag == nullptr) return false;
  tag->GetBaseSelect()->Select(static_cast<Int32>(index));
  return true;
}

SelectionTag* C4dPolygonMesh::materialSelection(int material) {
  auto found = selectionTags.find(material);
  if (found != selectionTags.end()) return found->second;
  auto* tag = static_cast<SelectionTag*>(polygonObject->MakeTag(Tpolygonselection, nullptr));
  if (tag == nullptr) return nullptr;
  tag->SetName(std::to_string(material));
  tag->GetBaseSelect()->DeselectAll();
  selectionTags[material] = tag;
  return tag;
}

bool C4dPolygonMesh::setTexturePolygon(uint32_t index, const mv::TexturePolygon& texture) {
  if (index >= polygonCount || index >= getPolygonCount()) {
    GePrint("TexturePolygon out of Bounds: " + std::to_string(index));
    return false;
  }
  if (uvwTag == nullptr) return true;
  uvwTag->SetSlow(static_cast<Int32>(index), UVWStruct{uvwOf(texture.a), uvwOf(texture.b),
                                                       uvwOf(texture.c), uvwOf(texture.d)});
  return true;
}

bool C4dPolygonMesh::setSelection(const std::string& name, const std::set<uint32_t>& polygons) {
  if (polygonObject == nullptr) return false;
  SelectionTag* tag = nullptr;
  for (BaseTag* candidate = polygonObject->GetFirstTag(); candidate != nullptr && tag == nullptr;
       candidate = candidate->GetNext()) {
    if (candidate->GetType() == Tpolygonselection && candidate->GetName() == name) {
      tag = static_cast<SelectionTag*>(candidate);
    }
  }
  if (tag == nullptr) {
    tag = static_cast<SelectionTag*>(polygonObject->MakeTag(Tpolygonselection, nullptr));
    if (tag == nullptr) return false;
    tag->SetName(name);
    tag->GetBaseSelect()->DeselectAll();
  }
  for (uint32_t polygon : polygons) tag->GetBaseSelect()->Select(static_cast<Int32>(polygon));
  return true;
}
