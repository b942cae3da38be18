// ClassicSpline: the path of a classic tree or horn, a Hermite curve through keyed points. The
// keys map a curve parameter (0 to 1) to a point; the tangent at a key leans on its neighbours,
// scaled down by tension. A plain value: copying copies the keys.
#pragma once

#include <map>

#include "core/Vector3.h"

namespace mv {

class ClassicSpline {
 public:
  virtual ~ClassicSpline() = default;

  // Sum of the distances between successive keys; 0 with fewer than two keys.
  double length() const;
  // The point at t, clamped to 0 to 1. Beyond the outer keys the outer pair's polynomial goes on.
  // No keys give the origin, one key its point.
  Vector3 pointAt(double t) const;

  std::map<double, Vector3> keys;  // parameter to point; no keys means no path
  double tension = 1.325;          // divisor of the Hermite tangents
};

}  // namespace mv
