// MeshBuilder: collects the points and polygons of a primitive and makes a polygon object with
// a UVW tag. Corners are given counter-clockwise as seen from outside in a right-handed frame;
// the object stores them in the host's order (reversed), so that after the host-to-library
// swap of y and z they are counter-clockwise again. Points of equal coordinates are welded,
// so grids that meet along an edge make a closed surface.
#pragma once

#include <map>
#include <tuple>
#include <vector>

#include "host/CPolygon.h"
#include "host/UVWTag.h"

class PolygonObject;

class MeshBuilder {
 public:
  Int32 addPoint(const Vector& p);
  // A quad; repeated corners (a pole, a cone's tip) make a triangle, two make nothing.
  void addQuad(const Vector& a, const Vector& b, const Vector& c, const Vector& d,
               const UVWStruct& uvw);
  // A grid of (rows x columns) cells over the surface `at(u, v)` with u, v in 0 to 1; each
  // cell's corners run (u, v), (u + du, v), (u + du, v + dv), (u, v + dv).
  template <typename Surface>
  void addGrid(Int32 columns, Int32 rows, Surface at) {
    for (Int32 r = 0; r < rows; ++r) {
      for (Int32 c = 0; c < columns; ++c) {
        Float u0 = Float(c) / columns, u1 = Float(c + 1) / columns;
        Float v0 = Float(r) / rows, v1 = Float(r + 1) / rows;
        addQuad(at(u0, v0), at(u1, v0), at(u1, v1), at(u0, v1),
                {{u0, 1 - v0, 0}, {u1, 1 - v0, 0}, {u1, 1 - v1, 0}, {u0, 1 - v1, 0}});
      }
    }
  }
  // The polygon object, the caller's; null when it cannot be allocated.
  PolygonObject* build() const;

 private:
  std::map<std::tuple<Float, Float, Float>, Int32> index_;
  std::vector<Vector> points_;
  std::vector<CPolygon> polygons_;
  std::vector<UVWStruct> uvw_;
};
