// Integration: the area under a piecewise linear function given by a stream of support points
// in ascending x, and its inverse: how far to go from a until the area reaches a target. Both are
// exact for the polyline. Subclasses supply the points.
#pragma once

namespace mt {

class Integration {
 public:
  virtual ~Integration() = default;
  // Goes to the first support point.
  virtual void reset() = 0;
  // Goes to the last support point at or before x.
  virtual void seek(double x) = 0;
  // Writes the current support point and steps on; false when there are no more.
  virtual bool next(double& x, double& y) = 0;

  // The area under the polyline from a to b; 0 with fewer than two support points.
  double integrate(double a, double b);
  // The x in a to b at which the area from a reaches target; when the target is out of reach,
  // the end of the last piece covered. A density of 0 where the target lies is not treated: the
  // result there is what floating point gives.
  double solve(double a, double b, double target);
};

}  // namespace mt
