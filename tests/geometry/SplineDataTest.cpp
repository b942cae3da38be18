#include <gtest/gtest.h>

#include <cmath>

#include "geometry/PolylineSpline.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/SplineBuilders.h"

using mv::Matrix4;
using mv::SplineData;
using mv::Vector3;

namespace {

// A spline that can be read but not edited, with one empty segment: the base class defaults.
class ReadOnlySpline : public mv::Spline {
 public:
  uint32_t getSegmentCount() const override { return 1; }
  uint32_t getSegmentPointCount(uint32_t) const override { return 0; }
  bool isSegmentClosed(uint32_t) const override { return true; }
  void getPosition(double, uint32_t, bool, Vector3& position) const override { position = {}; }
  bool isPolyline() const override { return true; }
};

SplineData twoSegments() {
  SplineData spline;
  appendSegment(spline, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
  appendSegment(spline, {{5, 5, 5}, {6, 5, 5}}, true, {0.25, 0.5});
  return spline;
}

}  // namespace

TEST(SplineData, answersBadIndicesWithZeroAndFalse) {
  SplineData spline = twoSegments();
  EXPECT_EQ(spline.getSegmentPointCount(2), 0u);
  EXPECT_FALSE(spline.isSegmentClosed(2));
  double t = -1;
  Vector3 point{9, 9, 9};
  EXPECT_FALSE(spline.getPoint(5, t, point));
  EXPECT_FALSE(spline.setPoint(5, 0.0, {}));
  EXPECT_FALSE(spline.setSegment(2, 1, false));
  EXPECT_EQ(t, -1);
  EXPECT_EQ(point, Vector3(9, 9, 9));
  EXPECT_EQ(spline.points.size(), 5u);
  EXPECT_EQ(spline.segments.size(), 2u);
}

TEST(SplineData, isTrueOnlyWithPoints) {
  SplineData spline;
  EXPECT_EQ(spline.truthValue(), 0);
  EXPECT_TRUE(!spline);
  spline.points.push_back({});
  EXPECT_EQ(spline.truthValue(), -1);
  EXPECT_FALSE(!spline);
  EXPECT_TRUE(spline.isPolyline());
}

TEST(SplineData, allocateKeepsEarlierPointsAndResetsEverySegment) {
  SplineData spline = twoSegments();
  ASSERT_TRUE(spline.allocate(7, 3));
  EXPECT_EQ(spline.getPointCount(), 7u);
  EXPECT_EQ(spline.getSegmentCount(), 3u);
  for (uint32_t s = 0; s < 3; ++s) {
    EXPECT_EQ(spline.getSegmentPointCount(s), 0u);
    EXPECT_FALSE(spline.isSegmentClosed(s));
  }
  EXPECT_EQ(spline.points[4].position, Vector3(6, 5, 5));
  EXPECT_TRUE(spline.finish());
}

TEST(SplineData, allocateRefusesWildCountsWithAMessageAndChangesNothing) {
  CapturingMessageHandler capture;
  SplineData spline = twoSegments();
  EXPECT_FALSE(spline.allocate(0xFFFFFFFFu, 1));
  EXPECT_FALSE(spline.allocate(1, SplineData::kMaxCount + 1));
  EXPECT_EQ(capture.errors.size(), 2u);
  EXPECT_EQ(spline.points.size(), 5u);
  EXPECT_EQ(spline.segments.size(), 2u);
}

TEST(SplineCopy, keepsPointsParametersCountsAndFlags) {
  const SplineData source = twoSegments();
  mv::PolylineSpline copy;
  appendSegment(copy, {{8, 8, 8}});
  ASSERT_TRUE(copy.copy(source));
  ASSERT_EQ(copy.points.size(), source.points.size());
  for (size_t i = 0; i < source.points.size(); ++i) {
    EXPECT_EQ(copy.points[i].t, source.points[i].t);
    EXPECT_EQ(copy.points[i].position, source.points[i].position);
  }
  ASSERT_EQ(copy.getSegmentCount(), 2u);
  EXPECT_EQ(copy.getSegmentPointCount(0), 3u);
  EXPECT_FALSE(copy.isSegmentClosed(0));
  EXPECT_EQ(copy.getSegmentPointCount(1), 2u);
  EXPECT_TRUE(copy.isSegmentClosed(1));
}

TEST(SplineCopy, ofItselfChangesNothing) {
  SplineData spline = twoSegments();
  ASSERT_TRUE(spline.copy(spline));
  EXPECT_EQ(spline.getSegmentPointCount(0), 3u);
  EXPECT_TRUE(spline.isSegmentClosed(1));
  EXPECT_EQ(spline.points[3].t, 0.25);
}

TEST(SplineCopy, ofAnEmptySplineEmptiesTheTarget) {
  SplineData spline = twoSegments();
  ASSERT_TRUE(spline.copy(SplineData()));
  EXPECT_TRUE(spline.points.empty());
  EXPECT_TRUE(spline.segments.empty());
}

TEST(SplineTransform, identityLeavesEveryPointAndParameter) {
  SplineData spline = twoSegments();
  const SplineData before = spline;
  EXPECT_TRUE(spline.transform(Matrix4()));
  for (size_t i = 0; i < spline.points.size(); ++i) {
    EXPECT_EQ(spline.points[i].t, before.points[i].t);
    EXPECT_EQ(spline.points[i].position, before.points[i].position);
  }
}

TEST(SplineTransform, carriesPointsAsRowVectorsAndKeepsParameters) {
  SplineData spline = twoSegments();
  Matrix4 matrix = Matrix4::translation({0, 0, 10});
  matrix.rotateZ(M_PI / 2);  // acts first: (x, y) becomes (-y, x)
  EXPECT_TRUE(spline.transform(matrix));
  expectNear(spline.points[2].position, {-1, 1, 10});
  expectNear(spline.points[4].position, {-5, 6, 15});
  EXPECT_EQ(spline.points[4].t, 0.5);
}

TEST(SplineMakeCircle, placesFourPointsFromPlusYTowardsPlusX) {
  const double r = 2.5;
  SplineData circle = twoSegments();
  ASSERT_TRUE(circle.makeCircle(r, 4));
  ASSERT_EQ(circle.points.size(), 4u);
  const Vector3 expected[] = {{0, r, 0}, {r, 0, 0}, {0, -r, 0}, {-r, 0, 0}};
  for (uint32_t i = 0; i < 4; ++i) {
    EXPECT_EQ(circle.points[i].t, i * 0.25);
    expectNear(circle.points[i].position, expected[i], 1e-15);
  }
  ASSERT_EQ(circle.getSegmentCount(), 1u);
  EXPECT_EQ(circle.getSegmentPointCount(0), 4u);
  EXPECT_TRUE(circle.isSegmentClosed(0));
}

TEST(SplineMakeCircle, makesATriangleOfFewerThanThreePoints) {
  for (uint32_t n : {0u, 1u, 2u}) {
    SplineData circle;
    ASSERT_TRUE(circle.makeCircle(1.0, n));
    ASSERT_EQ(circle.points.size(), 3u);
    EXPECT_EQ(circle.getSegmentPointCount(0), 3u);
    EXPECT_DOUBLE_EQ(circle.points[2].t, 2.0 / 3);
    expectNear(circle.points[1].position, {std::sqrt(0.75), -0.5, 0});
  }
}

TEST(SplineBase, readOnlySplineRefusesEveryEditAndHasNoPoints) {
  ReadOnlySpline spline;
  double t = -1;
  Vector3 vector;
  Matrix4 frame;
  uint32_t segment = 7;
  EXPECT_EQ(spline.truthValue(), 0);
  EXPECT_FALSE(spline.getPoint(0, t, vector));
  EXPECT_FALSE(spline.getPointTangent(0, t, vector));
  EXPECT_FALSE(spline.getPointAngleFrame(0, t, frame));
  EXPECT_FALSE(spline.findClosest({}, segment, t));
  EXPECT_FALSE(spline.allocate(1, 1));
  EXPECT_FALSE(spline.setPoint(0, 0, {}));
  EXPECT_FALSE(spline.setSegment(0, 0, false));
  EXPECT_FALSE(spline.finish());
  EXPECT_FALSE(spline.copy(twoSegments()));
  EXPECT_FALSE(spline.makeCircle(1, 8));
  EXPECT_TRUE(spline.transform(Matrix4()));
  EXPECT_EQ(segment, 7u);
  EXPECT_EQ(t, -1);
}

TEST(SplineFindClosest, findsNothingWithoutAPiece) {
  uint32_t segment = 7;
  double t = -1;
  EXPECT_FALSE(SplineData().findClosest({1, 2, 3}, segment, t));
  SplineData onePoint;
  appendSegment(onePoint, {{1, 1, 1}});
  EXPECT_FALSE(onePoint.findClosest({1, 2, 3}, segment, t));
  EXPECT_EQ(segment, 7u);
  EXPECT_EQ(t, -1);
}

TEST(SplineFindClosest, interpolatesTheParameterAtTheFootAndClampsToTheEnds) {
  SplineData spline;
  appendSegment(spline, {{0, 0, 0}, {4, 0, 0}}, false, {0.2, 0.6});
  uint32_t segment = 7;
  double t = -1;
  ASSERT_TRUE(spline.findClosest({1, 3, 0}, segment, t));
  EXPECT_EQ(segment, 0u);
  EXPECT_DOUBLE_EQ(t, 0.3);
  ASSERT_TRUE(spline.findClosest({-2, 1, 0}, segment, t));
  EXPECT_DOUBLE_EQ(t, 0.2);
  ASSERT_TRUE(spline.findClosest({9, 0, -1}, segment, t));
  EXPECT_DOUBLE_EQ(t, 0.6);
}

TEST(SplineFindClosest, takesTheNearerSegmentAndKeepsTheFirstOnATie) {
  SplineData spline;
  appendSegment(spline, {{0, 0, 0}, {4, 0, 0}});
  appendSegment(spline, {{0, 5, 0}, {4, 5, 0}});
  uint32_t segment = 7;
  double t = -1;
  ASSERT_TRUE(spline.findClosest({2, 4, 0}, segment, t));
  EXPECT_EQ(segment, 1u);
  EXPECT_DOUBLE_EQ(t, 0.5);
  ASSERT_TRUE(spline.findClosest({1, 2.5, 0}, segment, t));
  EXPECT_EQ(segment, 0u);
  EXPECT_DOUBLE_EQ(t, 0.25);
}

TEST(SplineFindClosest, coversTheClosingPieceOfAClosedSegment) {
  const std::vector<Vector3> square = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
  SplineData open, closed;
  appendSegment(open, square);
  appendSegment(closed, square, true);
  uint32_t segment = 7;
  double t = -1;
  ASSERT_TRUE(open.findClosest({-1, 0.5, 0}, segment, t));
  EXPECT_EQ(t, 0.0);  // the corner at the start
  ASSERT_TRUE(closed.findClosest({-1, 0.5, 0}, segment, t));
  EXPECT_DOUBLE_EQ(t, 0.25);  // from t 1 at the last point back to t 0 at the first
}

TEST(SplineFindClosest, survivesZeroLengthPieces) {
  SplineData spline;
  appendSegment(spline, {{1, 1, 1}, {1, 1, 1}}, false, {0.2, 0.4});
  appendSegment(spline, {{3, 3, 3}}, true, {0.9});
  uint32_t segment = 7;
  double t = -1;
  ASSERT_TRUE(spline.findClosest({0, 0, 0}, segment, t));
  EXPECT_EQ(segment, 0u);
  EXPECT_EQ(t, 0.2);
  ASSERT_TRUE(spline.findClosest({3, 3, 4}, segment, t));
  EXPECT_EQ(segment, 1u);
  EXPECT_EQ(t, 0.9);
}
