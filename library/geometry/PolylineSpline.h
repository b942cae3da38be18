// PolylineSpline: a SplineData that also knows where it goes between its points, by linear
// interpolation of the positions over t within a segment. It lets paths and profiles from a scene
// file be evaluated without a host: getFrame and getAngleFrame then carry the place at t.
#pragma once

#include "geometry/SplineData.h"

namespace mv {

class PolylineSpline : public SplineData {
 public:
  // The place at t on the segment, smooth or not: the first point for t at or before the first
  // parameter, the last point past the last one, otherwise linear between the two points whose
  // parameters enclose t. A closed segment does not wrap. Zero for a bad or empty segment.
  void getPosition(double t, uint32_t segment, bool smooth, Vector3& position) const override;
};

}  // namespace mv
