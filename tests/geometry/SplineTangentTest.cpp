#include <gtest/gtest.h>

#include <random>

#include "geometry/SplineData.h"
#include "support/GeometryExpectations.h"
#include "support/SplineBuilders.h"

using mv::SplineData;
using mv::Vector3;

namespace {

// A bend whose pieces differ in length (2 and 3), so that an unnormalised answer shows.
SplineData bend() {
  SplineData spline;
  appendSegment(spline, {{0, 0, 0}, {2, 0, 0}, {2, 3, 0}});
  return spline;
}

Vector3 tangentAt(const mv::Spline& spline, double t, bool smooth, uint32_t segment = 0) {
  Vector3 tangent{9, 9, 9};
  spline.getTangent(t, segment, smooth, tangent);
  return tangent;
}

}  // namespace

TEST(SplineTangent, isZeroWithoutAUsableSegment) {
  SplineData empty, onePoint, overclaiming;
  appendSegment(onePoint, {{1, 2, 3}});
  overclaiming.points = {{0, {0, 0, 0}}, {1, {1, 0, 0}}};
  overclaiming.segments = {{5, false}};  // claims more points than there are
  for (bool smooth : {false, true}) {
    EXPECT_EQ(tangentAt(empty, 0.5, smooth), Vector3());
    EXPECT_EQ(tangentAt(onePoint, 0.0, smooth), Vector3());
    EXPECT_EQ(tangentAt(bend(), 0.5, smooth, 1), Vector3());
    EXPECT_EQ(tangentAt(overclaiming, 0.5, smooth), Vector3());
  }
}

TEST(SplineTangent, twoPointSegmentGivesItsUnnormalisedPieceForAnyT) {
  SplineData spline;
  appendSegment(spline, {{1, 1, 1}, {1, 1, 4}});
  for (bool smooth : {false, true}) {
    for (double t : {-5.0, 0.0, 0.5, 1.0, 7.0})
      EXPECT_EQ(tangentAt(spline, t, smooth), Vector3(0, 0, 3));
  }
}

TEST(SplineTangent, sharpTakesThePieceEndingAtTheFirstPointAtOrAboveT) {
  const SplineData spline = bend();
  EXPECT_EQ(tangentAt(spline, -1.0, false), Vector3(2, 0, 0));
  EXPECT_EQ(tangentAt(spline, 0.0, false), Vector3(2, 0, 0));
  EXPECT_EQ(tangentAt(spline, 0.5, false), Vector3(2, 0, 0));
  EXPECT_EQ(tangentAt(spline, 0.5001, false), Vector3(0, 3, 0));
  EXPECT_EQ(tangentAt(spline, 1.0, false), Vector3(0, 3, 0));
}

TEST(SplineTangent, pastTheLastParameterIsZeroInBothModes) {
  EXPECT_EQ(tangentAt(bend(), 1.0001, false), Vector3());
  EXPECT_EQ(tangentAt(bend(), 1.0001, true), Vector3());
}

TEST(SplineTangent, smoothTakesTheUnnormalisedEndPieceNearEitherEnd) {
  const SplineData spline = bend();
  EXPECT_EQ(tangentAt(spline, -1.0, true), Vector3(2, 0, 0));
  EXPECT_EQ(tangentAt(spline, 0.1, true), Vector3(2, 0, 0));
  EXPECT_EQ(tangentAt(spline, 0.9, true), Vector3(0, 3, 0));
  EXPECT_EQ(tangentAt(spline, 1.0, true), Vector3(0, 3, 0));
}

TEST(SplineTangent, smoothBlendsNormalisedPiecesBetweenTheMidpoints) {
  const SplineData spline = bend();  // midpoints of the parameters: 0.25 and 0.75
  expectNear(tangentAt(spline, 0.25, true), {1, 0, 0});  // a tie goes to the later point
  expectNear(tangentAt(spline, 0.3, true), {0.9, 0.1, 0});
  expectNear(tangentAt(spline, 0.5, true), {0.5, 0.5, 0});
  expectNear(tangentAt(spline, 0.6, true), {0.3, 0.7, 0});
}

TEST(SplineTangent, smoothFollowsUnevenParametersInALaterSegment) {
  SplineData spline;
  appendSegment(spline, {{5, 5, 5}, {6, 5, 5}});
  appendSegment(spline, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 5}}, false, {0, 0.2, 0.6, 1});
  // Around point 1 the ramp runs from 0.1 to 0.4, around point 2 from 0.4 to 0.8.
  expectNear(tangentAt(spline, 0.3, true, 1), {1.0 / 3, 2.0 / 3, 0});
  expectNear(tangentAt(spline, 0.7, true, 1), {0, 0.25, 0.75});
  EXPECT_EQ(tangentAt(spline, 0.7, false, 1), Vector3(0, 0, 5));
}

TEST(SplineTangent, tinyPiecesAreNotNormalised) {
  SplineData spline;
  appendSegment(spline, {{0, 0, 0}, {1e-11, 0, 0}, {1e-11, 1, 0}});
  const Vector3 tangent = tangentAt(spline, 0.5, true);
  EXPECT_DOUBLE_EQ(tangent.x, 0.5e-11);
  EXPECT_DOUBLE_EQ(tangent.y, 0.5);
}

TEST(SplinePointTangent, refusesAnEmptySplineAndBadIndices) {
  double t = -1;
  Vector3 tangent;
  EXPECT_FALSE(SplineData().getPointTangent(0, t, tangent));
  EXPECT_FALSE(bend().getPointTangent(3, t, tangent));
  SplineData uncovered = bend();
  uncovered.points.push_back({1, {9, 9, 9}});  // a point no segment holds
  EXPECT_FALSE(uncovered.getPointTangent(3, t, tangent));
  SplineData lonely = bend();
  appendSegment(lonely, {{7, 7, 7}});  // a segment too short for a piece
  EXPECT_FALSE(lonely.getPointTangent(3, t, tangent));
  EXPECT_EQ(t, -1);
}

TEST(SplinePointTangent, aSplineOfOnePointPointsUpAtZero) {
  SplineData spline;
  appendSegment(spline, {{1, 2, 3}}, false, {0.7});
  double t = -1;
  Vector3 tangent;
  ASSERT_TRUE(spline.getPointTangent(0, t, tangent));
  EXPECT_EQ(t, 0.0);
  EXPECT_EQ(tangent, Vector3(0, 0, 1));
}

TEST(SplinePointTangent, openEndsTakeTheirPieceAndInnerPointsTheMeanDirection) {
  const SplineData spline = bend();
  const double expectedT[] = {0.0, 0.5, 1.0};
  const Vector3 expected[] = {{2, 0, 0}, {0.5, 0.5, 0}, {0, 3, 0}};
  for (uint32_t i = 0; i < 3; ++i) {
    double t = -1;
    Vector3 tangent;
    ASSERT_TRUE(spline.getPointTangent(i, t, tangent));
    EXPECT_EQ(t, expectedT[i]);
    expectNear(tangent, expected[i]);
  }
}

TEST(SplinePointTangent, closedSegmentWrapsAroundInALaterSegment) {
  SplineData spline = bend();
  appendSegment(spline, {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, true);
  double t = -1;
  Vector3 tangent;
  ASSERT_TRUE(spline.getPointTangent(3, t, tangent));  // first point of the square
  EXPECT_EQ(t, 0.0);
  expectNear(tangent, {0.5, -0.5, 0});
  ASSERT_TRUE(spline.getPointTangent(6, t, tangent));  // last point of the square
  EXPECT_EQ(t, 1.0);
  expectNear(tangent, {-0.5, -0.5, 0});
}

TEST(SplineTangent, longSegmentFindsThePieceAPlainScanFinds) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> step(0.0, 0.01), coordinate(-1.0, 1.0);
  SplineData spline;
  double t = 0.0;
  for (int i = 0; i < 1000; ++i) {
    if (i % 7 != 3) t += step(random);  // some points share their parameter
    spline.points.push_back({t, {coordinate(random), coordinate(random), coordinate(random)}});
  }
  spline.segments = {{1000, false}};
  std::uniform_real_distribution<double> query(-0.1, t + 0.1);
  for (int sample = 0; sample < 2000; ++sample) {
    const double at = sample < 1000 ? spline.points[sample].t : query(random);
    Vector3 expected;
    for (size_t i = 1; i < spline.points.size(); ++i) {
      if (spline.points[i].t >= at) {
        expected = spline.points[i].position - spline.points[i - 1].position;
        break;
      }
    }
    EXPECT_EQ(tangentAt(spline, at, false), expected) << at;
  }
}
