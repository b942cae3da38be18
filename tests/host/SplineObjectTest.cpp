#include "host/SplineObject.h"

#include <gtest/gtest.h>

#include "host/LineObject.h"

namespace {

struct LineOf {
  explicit LineOf(const SplineObject* spline)
      : line(spline->GetLineObject(nullptr, 1.0, nullptr)) {}
  ~LineOf() {
    BaseObject* base = line;
    BaseObject::Free(base);
  }
  LineObject* line;
};

SplineObject* spline(Int32 type, Int32 mode, Int32 number, std::vector<Vector> points) {
  SplineObject* s = SplineObject::Alloc(static_cast<Int32>(points.size()), type);
  s->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, mode);
  s->GetDataInstance()->SetLong(SPLINEOBJECT_SUB, number);
  for (size_t i = 0; i < points.size(); ++i) s->GetPointW()[i] = points[i];
  return s;
}

void freeSpline(SplineObject* s) {
  BaseObject* base = s;
  BaseObject::Free(base);
}

TEST(SplineObject, LinearWithoutIntermediatePointsKeepsItsPointsAndParametersByLength) {
  SplineObject* s = spline(SPLINETYPE_LINEAR, SPLINEOBJECT_INTERPOLATION_NONE, 0,
                           {{0, 0, 0}, {3, 0, 0}, {3, 1, 0}});
  LineOf l(s);
  ASSERT_EQ(l.line->GetPointCount(), 3);
  EXPECT_EQ(l.line->GetPointR()[2], Vector(3, 1, 0));
  ASSERT_EQ(l.line->GetSegmentCount(), 1);
  EXPECT_EQ(l.line->GetSegmentR()[0].cnt, 3);
  EXPECT_DOUBLE_EQ(l.line->GetLineR()[1], 0.75);
  EXPECT_DOUBLE_EQ(l.line->GetLineR()[2], 1.0);
  freeSpline(s);
}

TEST(SplineObject, UniformPutsNumberPointsInsideEachSpan) {
  SplineObject* s = spline(SPLINETYPE_LINEAR, SPLINEOBJECT_INTERPOLATION_UNIFORM, 3,
                           {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}});
  LineOf l(s);
  ASSERT_EQ(l.line->GetPointCount(), 9);
  EXPECT_EQ(l.line->GetPointR()[1], Vector(1, 0, 0));
  EXPECT_EQ(l.line->GetPointR()[6], Vector(4, 2, 0));
  freeSpline(s);
}

TEST(SplineObject, CubicPassesThroughItsPointsWithCatmullRomTangents) {
  std::vector<Vector> p = {{0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {3, 1, 0}};
  SplineObject* s = spline(SPLINETYPE_CUBIC, SPLINEOBJECT_INTERPOLATION_NATURAL, 1, p);
  LineOf l(s);
  ASSERT_EQ(l.line->GetPointCount(), 7);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(l.line->GetPointR()[2 * i], p[i]);
  // Middle of the inner span: (p1 + p2) / 2 + (m1 - m2) / 8 with m = (next - previous) / 2.
  Vector m1 = (p[2] - p[0]) * 0.5, m2 = (p[3] - p[1]) * 0.5;
  Vector expected = (p[1] + p[2]) * 0.5 + (m1 - m2) * 0.125;
  EXPECT_NEAR(l.line->GetPointR()[3].x, expected.x, 1e-12);
  EXPECT_NEAR(l.line->GetPointR()[3].y, expected.y, 1e-12);
  freeSpline(s);
}

TEST(SplineObject, AdaptiveAddsNothingToAStraightCubicAndMoreToATighterTurn) {
  SplineObject* straight = spline(SPLINETYPE_CUBIC, SPLINEOBJECT_INTERPOLATION_ADAPTIVE, 0,
                                  {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}});
  LineOf a(straight);
  EXPECT_EQ(a.line->GetPointCount(), 3);
  SplineObject* bent = spline(SPLINETYPE_CUBIC, SPLINEOBJECT_INTERPOLATION_ADAPTIVE, 0,
                              {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
  LineOf b(bent);
  EXPECT_GT(b.line->GetPointCount(), 6);
  freeSpline(straight);
  freeSpline(bent);
}

TEST(SplineObject, ClosedSegmentsWrapAndKeepTheirFlag) {
  SplineObject* s = spline(SPLINETYPE_LINEAR, SPLINEOBJECT_INTERPOLATION_UNIFORM, 1,
                           {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {5, 5, 5}, {6, 5, 5}});
  s->ResizeObject(5, 2);
  s->GetSegmentW()[0] = {3, true};
  s->GetSegmentW()[1] = {2, false};
  LineOf l(s);
  ASSERT_EQ(l.line->GetSegmentCount(), 2);
  EXPECT_EQ(l.line->GetSegmentR()[0].cnt, 6);  // three spans of two points
  EXPECT_TRUE(l.line->GetSegmentR()[0].closed);
  EXPECT_EQ(l.line->GetPointR()[5], Vector(1, 1, 0));  // inside the closing span
  EXPECT_EQ(l.line->GetSegmentR()[1].cnt, 3);
  EXPECT_EQ(l.line->GetPointR()[7], Vector(5.5, 5, 5));
  freeSpline(s);
}

TEST(SplineObject, HugeNumberOfIntermediatePointsIsRefused) {
  SplineObject* s = SplineObject::Alloc(1 << 20, SPLINETYPE_LINEAR);
  s->GetDataInstance()->SetLong(SPLINEOBJECT_SUB, 1 << 30);
  s->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_UNIFORM);
  EXPECT_EQ(s->GetLineObject(nullptr, 1.0, nullptr), nullptr);
  freeSpline(s);
}

}  // namespace
