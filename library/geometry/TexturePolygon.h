// TexturePolygon: the texture coordinates of the polygon with the same index, one per corner
// (x is u, y is v, z is 0). For a triangle the fourth repeats the third.
#pragma once

#include "core/Vector3.h"

namespace mv {

struct TexturePolygon {
  Vector3 a, b, c, d;

  bool operator==(const TexturePolygon& o) const {
    return a == o.a && b == o.b && c == o.c && d == o.d;
  }
};

}  // namespace mv
