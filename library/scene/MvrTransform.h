// MvrTransform: the placement of a scene object or of its primitive: scale, rotation (radians)
// and translation, each with per-axis limits.
#pragma once

#include "scene/MvrLimitedTriple.h"

namespace mv {

struct MvrTransform {
  MvrLimitedTriple scale{{1, 1, 1}, {-1, -1, -1}, {20, 20, 20}};
  MvrLimitedTriple rotation{{0, 0, 0}, {-3.14159, -3.14159, -3.14159}, {3.14159, 3.14159, 3.14159}};
  MvrLimitedTriple translation{{0, 0, 0}, {-50, -50, -50}, {50, 50, 50}};
};

}  // namespace mv
