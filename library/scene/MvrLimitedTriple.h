// MvrLimitedTriple: a vector value (x, y, z) of a scene file with a lower and an upper limit for
// each axis, written as three brace groups, one per axis.
#pragma once

#include "core/Vector3.h"

namespace mv {

struct MvrLimitedTriple {
  Vector3 value;
  Vector3 lower;
  Vector3 upper;
};

}  // namespace mv
