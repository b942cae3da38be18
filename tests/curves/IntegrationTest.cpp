#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "curves/CurveParamIntegration.h"

namespace {

// A polyline curve through (0, y0), the inner points given, and (1, y1).
mv::CurveParam polyline(double y0, const std::map<double, double>& inner, double y1) {
  mv::CurveParam curve(0.0, 1.0, y0, y1, "id");
  for (const auto& [x, y] : inner) curve.addPoint(x, y, mv::PointCorner);
  return curve;
}

}  // namespace

TEST(Integration, areaUnderPolylineIsExact) {
  const mv::CurveParam ramp;  // 0 to 0
  mv::CurveParam rising(0.0, 1.0, 0.0, 1.0, "id");
  mv::CurveParamIntegration rampArea(&ramp), risingArea(&rising);
  EXPECT_EQ(rampArea.integrate(0.0, 1.0), 0.0);
  EXPECT_DOUBLE_EQ(risingArea.integrate(0.0, 1.0), 0.5);
  EXPECT_EQ(risingArea.integrate(0.3, 0.3), 0.0);
  EXPECT_DOUBLE_EQ(risingArea.integrate(0.5, 1.0), 0.375);

  const mv::CurveParam tent = polyline(1.0, {{0.5, 3.0}}, 1.0);
  mv::CurveParamIntegration tentArea(&tent);
  EXPECT_DOUBLE_EQ(tentArea.integrate(0.0, 1.0), 2.0);
  EXPECT_DOUBLE_EQ(tentArea.integrate(0.25, 0.75), 1.25);
  EXPECT_DOUBLE_EQ(tentArea.integrate(0.6, 0.9), 0.3 * 0.5 * (2.6 + 1.4));
  EXPECT_DOUBLE_EQ(tentArea.integrate(-1.0, 2.0), 2.0);
}

TEST(Integration, ignoresControlPointsAndExpression) {
  mv::CurveParam smooth(0.0, 1.0, 1.0, 3.0, 1.0, mv::PointSmooth);
  ASSERT_TRUE(smooth.setExpression("x*100"));
  mv::CurveParamIntegration area(&smooth);
  EXPECT_DOUBLE_EQ(area.integrate(0.0, 1.0), 2.0);
}

TEST(Integration, constantDensityGivesEvenlySpacedPositions) {
  const mv::CurveParam constant(0.0, 1.0, 2.0, 2.0, "id");
  mv::CurveParamIntegration density(&constant);
  const int count = 8;
  for (int k = 0; k <= count; ++k) {
    EXPECT_NEAR(density.solve(0.0, 1.0, 2.0 * k / count), static_cast<double>(k) / count, 1e-15);
  }
  EXPECT_DOUBLE_EQ(density.solve(0.25, 1.0, 1.0), 0.75);
}

TEST(Integration, solveInvertsSlopedPieces) {
  mv::CurveParam rising(0.0, 1.0, 0.0, 1.0, "id");
  mv::CurveParamIntegration up(&rising);
  EXPECT_DOUBLE_EQ(up.solve(0.0, 1.0, 0.125), 0.5);  // area s^2 / 2

  mv::CurveParam falling(0.0, 1.0, 2.0, 0.0, "id");
  mv::CurveParamIntegration down(&falling);
  EXPECT_DOUBLE_EQ(down.solve(0.0, 1.0, 0.75), 0.5);  // area 2s - s^2: the smaller root
}

TEST(Integration, targetOnASupportPointSolvesToThatPoint) {
  struct Row {
    mv::CurveParam curve;
    double target, expected;
  };
  // A cone's radius sampled at its middle: equal areas at k / 4 of 0.5 lie at sqrt(k / 4).
  const mv::CurveParam cone = polyline(0.0, {{0.5, 0.5}}, 1.0);
  // The default node distribution of a Branch: 0 up to 0.5 at the middle, down to 0.2.
  const mv::CurveParam distribution(0.0, 1.0, 0.0, 0.5, 0.2, mv::PointCorner);
  const Row rows[] = {
      {cone, 0.0, 0.0},
      {cone, 0.125, 0.5},
      {cone, 0.25, std::sqrt(0.5)},
      {cone, 0.375, std::sqrt(0.75)},
      {cone, 0.5, 1.0},
      {distribution, 0.125, 0.5},
      {polyline(2.0, {{0.5, 1.0}}, 0.0), 0.75, 0.5},  // falling through the support point
      {polyline(1.0, {{0.25, 2.0}}, 2.0), 0.0, 0.0},  // rising from the start
  };
  for (const Row& row : rows) {
    mv::CurveParamIntegration area(&row.curve);
    EXPECT_NEAR(area.solve(0.0, 1.0, row.target), row.expected, 1e-15) << row.target;
  }
}

TEST(Integration, solveStopsAtEndWhenTargetOutOfReach) {
  const mv::CurveParam tent = polyline(1.0, {{0.5, 3.0}}, 1.0);
  mv::CurveParamIntegration area(&tent);
  EXPECT_EQ(area.solve(0.0, 1.0, 10.0), 1.0);
  EXPECT_EQ(area.solve(0.0, 0.6, 10.0), 0.6);
  EXPECT_EQ(area.solve(0.2, 0.4, 10.0), 0.4);
}

TEST(Integration, solveAndIntegrateAreInverse) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> value(0.2, 3.0), position(0.05, 0.95);
  std::map<double, double> inner;
  for (int i = 0; i < 9; ++i) inner[position(random)] = value(random);
  const mv::CurveParam curve = polyline(value(random), inner, value(random));
  mv::CurveParamIntegration area(&curve);
  for (double a : {0.0, 0.13, 0.5}) {
    const double total = area.integrate(a, 1.0);
    for (double fraction : {0.1, 0.35, 0.6, 0.99}) {
      const double x = area.solve(a, 1.0, fraction * total);
      EXPECT_NEAR(area.integrate(a, x), fraction * total, 1e-12);
    }
  }
}

TEST(Integration, nullCurveHasNoArea) {
  mv::CurveParamIntegration none(nullptr);
  EXPECT_EQ(none.integrate(0.0, 1.0), 0.0);
  EXPECT_EQ(none.solve(0.3, 1.0, 1.0), 0.3);
  double x = -1.0, y = -1.0;
  EXPECT_FALSE(none.next(x, y));
}

TEST(CurveParamIntegration, seekFindsLastSupportPointAtOrBefore) {
  const mv::CurveParam curve = polyline(1.0, {{0.2, 2.0}, {0.6, 3.0}}, 4.0);
  mv::CurveParamIntegration points(&curve);
  double x = 0.0, y = 0.0;
  const std::pair<double, double> expected[] = {{-1.0, 0.0}, {0.0, 0.0}, {0.2, 0.2},
                                                {0.5, 0.2},  {0.6, 0.6}, {2.0, 1.0}};
  for (const auto& [seekX, foundX] : expected) {
    points.seek(seekX);
    ASSERT_TRUE(points.next(x, y));
    EXPECT_EQ(x, foundX) << seekX;
  }
  EXPECT_FALSE(points.next(x, y));  // past the last point
  points.reset();
  ASSERT_TRUE(points.next(x, y));
  EXPECT_EQ(y, 1.0);
}
