// MeshPolygon: one polygon of a mesh, four corner indices and a material index.
// A triangle repeats its third corner in d.
#pragma once

#include <cstdint>

namespace mv {

struct MeshPolygon {
  uint32_t a = 0;
  uint32_t b = 0;
  uint32_t c = 0;
  uint32_t d = 0;
  int32_t material = -1;  // -1: none

  bool isTriangle() const { return c == d; }
  bool operator==(const MeshPolygon& o) const {
    return a == o.a && b == o.b && c == o.c && d == o.d && material == o.material;
  }
};

}  // namespace mv
