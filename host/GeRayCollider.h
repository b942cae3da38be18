// GeRayCollider: rays against a polygon object, in the object's own space. Each polygon counts
// as its two triangles (a, b, c) and (a, c, d); a triangle (c equal to d) as one.
#pragma once

#include <vector>

#include "host/HostTypes.h"
#include "host/Vector.h"

class BaseObject;
class PolygonObject;

struct GeRayColResult {
  Vector hitpos;
  Float distance = 0.0;   // along the normalised direction
  Int32 face_id = 0;      // the polygon hit
  Bool backface = false;  // the ray meets the polygon's back
};

class GeRayCollider {
 public:
  // Takes the points and polygons of goal, which must be a polygon object; false otherwise.
  Bool Init(BaseObject* goal, Bool force = true);
  // Casts the ray from start along direction (normalised here) up to distance; true when
  // anything was hit.
  Bool Intersect(const Vector& start, const Vector& direction, Float distance,
                 Bool onlyTest = false);
  Int32 GetIntersectionCount() const { return static_cast<Int32>(hits_.size()); }
  // The hit nearest to the start of the last ray; false when there was none.
  Bool GetNearestIntersection(GeRayColResult* result) const;

 private:
  void testTriangle(const Vector& start, const Vector& direction, Float distance, Int32 face,
                    const Vector& a, const Vector& b, const Vector& c);

  PolygonObject* goal_ = nullptr;
  std::vector<GeRayColResult> hits_;
};
