// HandleInfo: where an object's handle stands and in which direction it may be dragged.
#pragma once

#include "host/Vector.h"

struct HandleInfo {
  Vector position;
  Vector direction;
};
