// ClassicUnit: the unit of a classic node, by which its chain is scaled into the scene. A unit
// of 0 or one that is not finite would turn every point into NaN, so it counts as 1.
#pragma once

#include <cmath>

#include "core/MathConstants.h"
#include "core/Matrix4.h"

namespace mv {

inline double usableUnit(double unit) {
  return std::isfinite(unit) && std::fabs(unit) >= kZeroTolerance ? unit : 1.0;
}

inline Matrix4 uniformScaling(double factor) { return Matrix4::scaling({factor, factor, factor}); }

// S(1 / unit) * matrix * S(unit): a matrix of the scene's units seen in the node's.
inline Matrix4 inUnit(const Matrix4& matrix, double unit) {
  return uniformScaling(1.0 / unit) * matrix * uniformScaling(unit);
}

}  // namespace mv
