#include "geometry/PolylineSpline.h"

namespace mv {

void PolylineSpline::getPosition(double t, uint32_t segment, bool, Vector3& position) const {
  position = Vector3();
  uint32_t first = 0, n = 0;
  if (!segmentRange(segment, first, n) || n == 0) return;
  const uint32_t end = first + n;
  uint32_t i = first;
  while (i < end && points[i].t < t) ++i;
  if (i == end) {
    position = points[end - 1].position;
    return;
  }
  const Point& after = points[i];
  if (i == first || after.t == t) {
    position = after.position;
    return;
  }
  // Here before.t < t < after.t, so the span is never zero.
  const Point& before = points[i - 1];
  const double f = (t - before.t) / (after.t - before.t);
  position = before.position + (after.position - before.position) * f;
}

}  // namespace mv
