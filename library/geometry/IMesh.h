// IMesh: the read side of a mesh, a flat list of points and of four-cornered polygons.
#pragma once

#include <cstdint>

#include "core/Vector3.h"
#include "geometry/MeshPolygon.h"
#include "geometry/TexturePolygon.h"

namespace mv {

class IMesh {
 public:
  virtual ~IMesh() = default;
  // All bits set when the mesh has points, otherwise 0.
  virtual int truthValue() const { return getPointCount() != 0 ? -1 : 0; }
  virtual bool operator!() const { return getPointCount() == 0; }
  virtual uint32_t getPointCount() const = 0;
  virtual uint32_t getPolygonCount() const = 0;
  virtual void getPoint(uint32_t index, Vector3& out) const = 0;
  virtual void getPolygon(uint32_t index, MeshPolygon& out) const = 0;
  virtual void getTexturePolygon(uint32_t index, TexturePolygon& out) const = 0;
  // False, leaving min and max untouched, when the mesh has no points.
  virtual bool getBoundingBox(Vector3& min, Vector3& max) const;
};

}  // namespace mv
