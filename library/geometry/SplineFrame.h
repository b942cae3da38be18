// SplineFrame: one stored step of a grown path: the walker's frame (rows x axis, y axis, z axis,
// position) and the parameter of the step.
#pragma once

#include "core/Matrix4.h"

namespace mv {

struct SplineFrame {
  Matrix4 matrix;
  double t = 0.0;
};

}  // namespace mv
