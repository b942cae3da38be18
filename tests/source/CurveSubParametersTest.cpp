#include "source/CurveSubParameters.h"

#include <gtest/gtest.h>

#include "source/CurveComparison.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

// First (0, 0.2), a free point id 3 at (0.5, 0.6) with controls at (0.4, 0.5) and (0.6, 0.9),
// last (1, 0.8); limits 0 to 1.
CurveParam freeMiddle(int type = mv::PointFree) {
  CurveParam curve(0.0, 1.0, 0.2, 0.8, "id");
  CurvePoint point = CurvePoint::at(0.5, 0.6, type, 3);
  point.inX = 0.4;
  point.inY = 0.5;
  point.outX = 0.6;
  point.outY = 0.9;
  EXPECT_TRUE(curve.setPoint(point, true));
  return curve;
}

const CurvePoint& middle(const CurveParam& curve) { return *curve.findPoint(3); }

}  // namespace

TEST(CurveSubParameters, getReadsEveryPartByNumber) {
  const CurveParam curve = freeMiddle();
  struct Row {
    int32_t number;
    CurveSubValue::Kind kind;
    double real;
  };
  const Row rows[] = {
      {1001, CurveSubValue::Real, 0.0},  {1002, CurveSubValue::Real, 1.0},
      {1230, CurveSubValue::Real, 0.5},  {1231, CurveSubValue::Real, 0.6},
      {1232, CurveSubValue::Integer, 3}, {1233, CurveSubValue::Real, -0.1},
      {1234, CurveSubValue::Real, -0.1}, {1235, CurveSubValue::Real, 0.1},
      {1236, CurveSubValue::Real, 0.3},  {1200, CurveSubValue::Real, 0.0},
      {1201, CurveSubValue::Real, 0.2},  {1211, CurveSubValue::Real, 0.8},
  };
  for (const Row& row : rows) {
    CurveSubValue value;
    ASSERT_TRUE(CurveSubParameters::get(curve, row.number, value)) << row.number;
    EXPECT_EQ(value.kind, row.kind) << row.number;
    EXPECT_NEAR(value.asReal(), row.real, 1e-12) << row.number;
  }
  CurveSubValue text;
  ASSERT_TRUE(CurveSubParameters::get(curve, 1000, text));
  EXPECT_EQ(text.text, "id(x)");
}

TEST(CurveSubParameters, numbersOfNoPartAreNotMatched) {
  const CurveParam curve = freeMiddle();
  for (int32_t number : {0, 999, 1003, 1199, 1207, 1219, 1220, 1227, 1240, -5}) {
    CurveSubValue value;
    EXPECT_FALSE(CurveSubParameters::get(curve, number, value)) << number;
    CurveParam changed = curve;
    EXPECT_FALSE(CurveSubParameters::set(changed, number, CurveSubValue::ofReal(0.3))) << number;
    EXPECT_EQ(CurveComparison::compare(&curve, &changed), 0) << number;
  }
}

TEST(CurveSubParameters, typeIsClampedToTheKnownTypes) {
  const struct {
    double value;
    int expected;
  } rows[] = {{7, mv::PointFree}, {-1, mv::PointCorner}, {1.9, mv::PointSmooth}, {2, 2}};
  for (const auto& row : rows) {
    CurveParam curve = freeMiddle();
    ASSERT_TRUE(CurveSubParameters::set(curve, 1232, CurveSubValue::ofReal(row.value)));
    EXPECT_EQ(middle(curve).type, row.expected) << row.value;
  }
}

TEST(CurveSubParameters, xOfTheFirstPointIsRefused) {
  CurveParam curve = freeMiddle();
  const CurveParam before = curve;
  EXPECT_TRUE(CurveSubParameters::set(curve, 1200, CurveSubValue::ofReal(0.3)));
  EXPECT_EQ(CurveComparison::compare(&before, &curve), 0);
}

TEST(CurveSubParameters, yIsClampedByFixedLimitsOrGrowsAFreeLimit) {
  const struct {
    int fixedLimits;
    double value, y, minimum, maximum;
  } rows[] = {
      {3, 1.5, 1.0, 0.0, 1.0},
      {3, -2.0, 0.0, 0.0, 1.0},
      // Range of the point y is 0.2 to 1.5: the upper limit grows by a tenth of 1.3.
      {1, 1.5, 1.5, 0.0, 1.5 + 0.13},
      {2, -1.0, -1.0, -1.0 - 0.18, 1.0},
  };
  for (const auto& row : rows) {
    CurveParam curve = freeMiddle();
    curve.setFixedLimits(row.fixedLimits);
    ASSERT_TRUE(CurveSubParameters::set(curve, 1231, CurveSubValue::ofReal(row.value)));
    EXPECT_DOUBLE_EQ(middle(curve).y, row.y) << row.value;
    EXPECT_DOUBLE_EQ(curve.minimum(), row.minimum) << row.value;
    EXPECT_DOUBLE_EQ(curve.maximum(), row.maximum) << row.value;
  }
}

TEST(CurveSubParameters, controlsMoveAloneOnFreePointsAndMirroredOnMirrored) {
  CurveParam free = freeMiddle(mv::PointFree);
  ASSERT_TRUE(CurveSubParameters::set(free, 1233, CurveSubValue::ofReal(-0.05)));
  EXPECT_DOUBLE_EQ(middle(free).inX, 0.45);
  EXPECT_DOUBLE_EQ(middle(free).outX, 0.6);
  EXPECT_DOUBLE_EQ(middle(free).outY, 0.9);

  CurveParam mirrored = freeMiddle(mv::PointMirrored);
  ASSERT_TRUE(CurveSubParameters::set(mirrored, 1233, CurveSubValue::ofReal(-0.05)));
  EXPECT_DOUBLE_EQ(middle(mirrored).inX, 0.45);
  EXPECT_DOUBLE_EQ(middle(mirrored).outX, 0.55);
  EXPECT_DOUBLE_EQ(middle(mirrored).outY, 0.7);
  ASSERT_TRUE(CurveSubParameters::set(mirrored, 1236, CurveSubValue::ofReal(-0.2)));
  EXPECT_DOUBLE_EQ(middle(mirrored).outY, 0.4);
  EXPECT_DOUBLE_EQ(middle(mirrored).inY, 0.8);
}

TEST(CurveSubParameters, controlYSumIsClampedByFixedLimits) {
  CurveParam curve = freeMiddle();
  curve.setFixedLimits(3);
  ASSERT_TRUE(CurveSubParameters::set(curve, 1236, CurveSubValue::ofReal(0.9)));
  EXPECT_DOUBLE_EQ(middle(curve).outY, 1.0);
  ASSERT_TRUE(CurveSubParameters::set(curve, 1234, CurveSubValue::ofReal(-0.9)));
  EXPECT_DOUBLE_EQ(middle(curve).inY, 0.0);
}

TEST(CurveSubParameters, aControlPastTheNeighbourIsRefused) {
  CurveParam curve = freeMiddle();
  const CurveParam before = curve;
  EXPECT_TRUE(CurveSubParameters::set(curve, 1235, CurveSubValue::ofReal(0.6)));
  EXPECT_EQ(CurveComparison::compare(&before, &curve), 0);
  CurveSubValue value;
  ASSERT_TRUE(CurveSubParameters::get(curve, 1235, value));
  EXPECT_NEAR(value.real, 0.1, 1e-12);
}

TEST(CurveSubParameters, limitsAndExpressionAreSet) {
  CurveParam curve = freeMiddle();
  EXPECT_TRUE(CurveSubParameters::set(curve, 1001, CurveSubValue::ofInteger(-2)));
  EXPECT_TRUE(CurveSubParameters::set(curve, 1002, CurveSubValue::ofReal(5.5)));
  EXPECT_TRUE(CurveSubParameters::set(curve, 1000, CurveSubValue::ofText("u*2")));
  EXPECT_TRUE(CurveSubParameters::set(curve, 1000, CurveSubValue::ofText("u*")));
  EXPECT_EQ(curve.minimum(), -2.0);
  EXPECT_EQ(curve.maximum(), 5.5);
  EXPECT_DOUBLE_EQ(curve.evaluate(0.25), 0.5);
}
