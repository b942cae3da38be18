// HairGuides: the guides of a hair object: `count` strands of `segments + 1` points each, one
// after another, and a root per strand that ties it to a polygon of the object the hair grows
// on (the hair object's link HAIR_LINK).
//
// A polygon root (type HAIR_ROOT_TYPE_POLY) lies on polygon m_ID at (m_S, m_T): on a quad
// (a, b, c, d) the bilinear point (1-s)(1-t) a + s(1-t) b + st c + (1-s)t d; on a triangle
// (c == d), with s + t at most 1, a + s (b - a) + t (c - a). Its normal is the polygon's,
// (d - b) x (c - a) normalised, the side from which the corners turn counter-clockwise once
// the host's axes are mirrored into right-handed ones (y and z swapped), as every mesh file has
// them: corners (0,0,0), (1,0,0), (1,0,1), (0,0,1) face +y. Positions and normals are given in
// the hair object's space.
#pragma once

#include <vector>

#include "host/Vector.h"

class HairObject;

constexpr Int32 HAIR_ROOT_TYPE_NONE = 0;
constexpr Int32 HAIR_ROOT_TYPE_POLY = 2;

struct HairRootData {
  Int32 m_Type = HAIR_ROOT_TYPE_NONE;
  Int32 m_ID = 0;
  Float m_S = 0.0, m_T = 0.0;
};

class HairGuides {
 public:
  // The largest number of points guides may hold (about 1.2 GB of points).
  static constexpr Int64 kMaxPoints = 50000000;

  // Zeroed guides; null for a count or segment number below 1 or more points than kMaxPoints.
  static HairGuides* Alloc(Int32 count, Int32 segments);
  static void Free(HairGuides*& guides);
  HairGuides* GetClone() const;

  Int32 GetCount() const { return count_; }
  Int32 GetSegmentCount() const { return segments_; }
  Int32 GetGuidePointCount() const { return segments_ + 1; }
  Vector* GetPoints() { return points_.data(); }
  const Vector* GetPoints() const { return points_.data(); }

  // An index outside the guides is ignored; `update` is accepted for the calling convention.
  void SetRoot(Int32 index, const HairRootData& root, Bool update);
  HairRootData GetRoot(Int32 index) const;
  // The root's position and normal; false (both left untouched) for an index outside, a root
  // that is not on a polygon, guides not set on a hair object, a hair object without a
  // polygon object to grow on, or a polygon that object does not have. `direction` receives the
  // normal too when given.
  Bool GetRootData(Int32 index, Vector* position, Vector* normal, Vector* direction,
                   Bool local) const;

 private:
  friend class HairObject;
  HairGuides(Int32 count, Int32 segments);

  Int32 count_;
  Int32 segments_;
  std::vector<Vector> points_;
  std::vector<HairRootData> roots_;
  const HairObject* owner_ = nullptr;  // the hair object they are set on
};
