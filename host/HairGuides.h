// HairGuides: the guides of a hair object: `count` guides of `segments + 1` points each, in one
// array (guide g's point j at g * (segments + 1) + j), and a root per guide on the polygons of
// the surface the guides are bound to. A root of type 2 (polygon) names a polygon and s, t in
// it: a quad at a + (b - a) s + ((d + (c - d) s) - (a + (b - a) s)) t, a triangle at
// a + (b - a) s + (c - a) t. The normal of a polygon is Cross(c - a, b - a), normalised, the
// side its stored corners turn around (outward on the host's closed primitives).
#pragma once

#include <vector>

#include "host/Vector.h"

class PolygonObject;

constexpr Int32 HAIR_ROOT_TYPE_POLY = 2;

struct HairRootData {
  Int32 m_Type = 0;
  Int32 m_ID = 0;
  Float m_S = 0.0, m_T = 0.0;
};

class HairGuides {
 public:
  // Null for a count below 1, segments below 1 or more than 2^24 points.
  static HairGuides* Alloc(Int32 count, Int32 segments);
  static void Free(HairGuides*& guides);
  HairGuides* GetClone() const { return new HairGuides(*this); }

  Int32 GetCount() const { return count_; }
  Int32 GetSegmentCount() const { return segments_; }
  Int32 GetPointCount() const { return static_cast<Int32>(points_.size()); }
  Vector* GetPoints() { return points_.data(); }
  const Vector* GetPoints() const { return points_.data(); }

  void SetRoot(Int32 index, const HairRootData& root, Bool update = false);
  HairRootData GetRoot(Int32 index) const;
  // The place and normal of a guide's root on the bound surface; false without a surface or
  // with a root that names no polygon of it.
  Bool GetRootData(Int32 index, Vector* position, Vector* normal) const;
  // The polygon object roots refer to; not owned.
  void SetSurface(const PolygonObject* surface) { surface_ = surface; }

 private:
  HairGuides(Int32 count, Int32 segments);

  Int32 count_, segments_;
  std::vector<Vector> points_;
  std::vector<HairRootData> roots_;
  const PolygonObject* surface_ = nullptr;
};
