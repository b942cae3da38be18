// OMesh: the write side of a mesh. A writer reserves room with allocate, which hands out the
// indices of the first new point and polygon, sets every entry it reserved, and calls finish.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "core/Matrix4.h"
#include "core/Vector3.h"
#include "geometry/MeshPolygon.h"
#include "geometry/TexturePolygon.h"

namespace mv {

class IMesh;

class OMesh {
 public:
  virtual ~OMesh() = default;
  // Reserves pointCount further points and polygonCount further polygons; false when the memory
  // cannot be had.
  virtual bool allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                        uint32_t& firstPolygon) = 0;
  virtual bool finish() = 0;
  // Each setter returns false, writing nothing, for an index outside the reserved range.
  virtual bool setPoint(uint32_t index, const Vector3& point) = 0;
  virtual bool setPolygon(uint32_t index, const MeshPolygon& polygon) = 0;
  virtual bool setTexturePolygon(uint32_t index, const TexturePolygon& texture) = 0;
  virtual bool setSelection(const std::string& name, const std::set<uint32_t>& polygons) = 0;

  // Appends source, its points carried by transform. A material of 0 or more replaces every
  // polygon's own. Selections are not carried over; finish is left to the caller.
  bool addMesh(const IMesh& source, const Matrix4& transform, int material);
};

}  // namespace mv
