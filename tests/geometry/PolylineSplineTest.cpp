#include <gtest/gtest.h>

#include "geometry/PolylineSpline.h"
#include "support/GeometryExpectations.h"
#include "support/SplineBuilders.h"

using mv::PolylineSpline;
using mv::Vector3;

namespace {

// Segment 0 a dummy, segment 1 a bend with uneven parameters.
PolylineSpline unevenBend() {
  PolylineSpline spline;
  appendSegment(spline, {{9, 9, 9}, {8, 8, 8}});
  appendSegment(spline, {{0, 0, 0}, {2, 0, 0}, {2, 4, 0}}, true, {0, 0.25, 1});
  return spline;
}

Vector3 positionAt(const mv::Spline& spline, double t, uint32_t segment = 1) {
  Vector3 position{7, 7, 7};
  spline.getPosition(t, segment, false, position);
  return position;
}

}  // namespace

TEST(PolylineSpline, interpolatesLinearlyBetweenTheEnclosingParameters) {
  const PolylineSpline spline = unevenBend();
  expectNear(positionAt(spline, 0.125), {1, 0, 0});
  expectNear(positionAt(spline, 0.625), {2, 2, 0});
  EXPECT_EQ(positionAt(spline, 0.25), Vector3(2, 0, 0));
  Vector3 smooth;
  spline.getPosition(0.625, 1, true, smooth);
  EXPECT_EQ(smooth, positionAt(spline, 0.625));
}

TEST(PolylineSpline, holdsTheEndPointsOutsideTheParameterRangeWithoutWrapping) {
  const PolylineSpline spline = unevenBend();
  EXPECT_EQ(positionAt(spline, -3.0), Vector3(0, 0, 0));
  EXPECT_EQ(positionAt(spline, 1.5), Vector3(2, 4, 0));
}

TEST(PolylineSpline, answersZeroForABadSegmentAndTheOnePointOfAShortOne) {
  PolylineSpline spline = unevenBend();
  EXPECT_EQ(positionAt(spline, 0.5, 2), Vector3());
  appendSegment(spline, {});
  EXPECT_EQ(positionAt(spline, 0.5, 2), Vector3());
  appendSegment(spline, {{3, 2, 1}}, false, {0.8});
  EXPECT_EQ(positionAt(spline, 0.1, 3), Vector3(3, 2, 1));
  EXPECT_EQ(positionAt(spline, 0.9, 3), Vector3(3, 2, 1));
}
