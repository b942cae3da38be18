// C4dPolygonMesh: a host polygon object seen as a library mesh. Written through a polygon stream
// it grows its object by doubling and keeps one polygon selection tag per material index, named
// after the index; finish cuts the object to what was written. Read over an existing object it
// answers points in library axes. The mesh never frees its object: detach hands it out.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "geometry/EditableMesh.h"
#include "host/PolygonObject.h"
#include "host/SelectionTag.h"
#include "host/UVWTag.h"

class C4dPolygonMesh : public virtual mv::EditableMesh {
 public:
  C4dPolygonMesh() = default;
  // A reading view of object, which stays the caller's.
  explicit C4dPolygonMesh(PolygonObject* object);

  // finish, then hands out the object (the caller owns it) and leaves the mesh empty; null when
  // nothing was allocated.
  PolygonObject* detach();
  PolygonObject* object() const { return polygonObject; }

  int truthValue() const override { return polygonObject != nullptr ? -1 : 0; }
  bool operator!() const override { return polygonObject == nullptr; }
  uint32_t getPointCount() const override;
  uint32_t getPolygonCount() const override;
  void getPoint(uint32_t index, mv::Vector3& out) const override;
  void getPolygon(uint32_t index, mv::MeshPolygon& out) const override;
  void getTexturePolygon(uint32_t index, mv::TexturePolygon& out) const override;

  bool allocate(uint32_t points, uint32_t polygons, uint32_t& firstPoint,
                uint32_t& firstPolygon) override;
  bool finish() override;
  bool setPoint(uint32_t index, const mv::Vector3& point) override;
  bool setPolygon(uint32_t index, const mv::MeshPolygon& polygon) override;
  bool setTexturePolygon(uint32_t index, const mv::TexturePolygon& texture) override;
  bool setSelection(const std::string& name, const std::set<uint32_t>& polygons) override;

 private:
  // The selection tag of a material, made and named at its first use; null when it cannot be.
  SelectionTag* materialSelection(int material);

  PolygonObject* polygonObject = nullptr;
  UVWTag* uvwTag = nullptr;
  std::map<int, SelectionTag*> selectionTags;
  uint32_t pointCount = 0;
  uint32_t polygonCount = 0;
};
