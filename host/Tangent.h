// Tangent: the left and right handles of a spline point, relative to the point.
#pragma once

#include "host/Vector.h"

struct Tangent {
  Vector vl, vr;
};
