// GeRayCollider: rays against the polygons of a polygon object, in the object's own space.
// Quads count as the two triangles (a, b, c) and (a, c, d); both sides are hit.
#pragma once

#include <vector>

#include "host/Vector.h"

class BaseObject;

struct GeRayColResult {
  Vector hitpos;
  Float distance = 0.0;  // along the ray from its start
  Int32 face_id = -1;    // the polygon
  Vector f_normal;       // of the triangle hit, unit length
  Bool backface = false;
};

class GeRayCollider {
 public:
  // False when `goal` is no polygon object; the polygons are copied.
  Bool Init(BaseObject* goal, Bool force = false);
  // Every hit within `distance` of the start along `direction` (normalised here). False without
  // a hit; with `onlyTest` it stops at the first.
  Bool Intersect(const Vector& start, const Vector& direction, Float distance,
                 Bool onlyTest = false);
  Int32 GetIntersectionCount() const { return static_cast<Int32>(hits_.size()); }
  Bool GetNearestIntersection(GeRayColResult* result) const;

 private:
  struct Triangle {
    Vector a, b, c;
    Int32 polygon;
  };
  std::vector<Triangle> triangles_;
  std::vector<GeRayColResult> hits_;
};
