// CPolygon: a polygon by its four corner indices; a triangle repeats its third corner (c == d).
#pragma once

#include "host/HostTypes.h"

struct CPolygon {
  Int32 a = 0, b = 0, c = 0, d = 0;
  CPolygon() = default;
  CPolygon(Int32 a, Int32 b, Int32 c) : a(a), b(b), c(c), d(c) {}
  CPolygon(Int32 a, Int32 b, Int32 c, Int32 d) : a(a), b(b), c(c), d(d) {}
  bool IsTriangle() const { return c == d; }
  bool operator==(const CPolygon& o) const { return a == o.a && b == o.b && c == o.c && d == o.d; }
};
