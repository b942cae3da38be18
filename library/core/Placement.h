// Placement: one instance of one child, as a node's evaluate reports it. A plain value.
#pragma once

#include <vector>

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

struct Placement {
  Matrix4 matrix;                 // where the instance stands, relative to the generator
  bool wantsData = false;         // the fields below are to be handed to the instance
  double position = 0.0;          // relative place along the generator, 0 to 1
  int index = 0;                  // number of the instance within its run
  int count = 1;                  // length of the run
  double carriedGrowth = 1.0;     // read by the instance as parameter 6000
  double carriedThickness = 1.0;  // parameter 6003
  double carriedDensity = 1.0;    // parameter 6004
  std::vector<Vector3> trail;     // copied along, read by nobody
};

}  // namespace mv
