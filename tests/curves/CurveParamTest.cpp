#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "curves/CurveParam.h"
#include "curves/MersenneTwister.h"
#include "support/CapturingMessageHandler.h"

namespace {

mv::CurvePoint freePoint(int id, double x, double y, double inX, double inY, double outX,
                         double outY) {
  mv::CurvePoint point = mv::CurvePoint::at(x, y, mv::PointFree, id);
  point.inX = inX;
  point.inY = inY;
  point.outX = outX;
  point.outY = outY;
  return point;
}

// One Bezier segment from (0, 0) to (1, 1) with free end points and the given controls.
mv::CurveParam bezierSegment(double outX, double outY, double inX, double inY) {
  mv::CurveParam curve;
  EXPECT_TRUE(curve.setPoint(freePoint(0, 0.0, 0.0, 0.0, 0.0, outX, outY), false));
  EXPECT_TRUE(curve.setPoint(freePoint(1, 1.0, 1.0, inX, inY, 1.0, 1.0), false));
  return curve;
}

std::string expressionOf(const mv::CurveParam& curve) {
  std::string text;
  curve.getExpression(text);
  return text;
}

// Both control points of every inner point lie in 0 to 1, in order around the point.
void expectCurveInvariants(const mv::CurveParam& curve) {
  for (int i = 0; i + 1 < curve.getPointCount(); ++i) {
    EXPECT_LT(curve.getPoint(i)->x + mv::CurveParam::kTolerance, curve.getPoint(i + 1)->x);
  }
  EXPECT_EQ(curve.getPoint(0)->x, 0.0);
  EXPECT_EQ(curve.getPoint(curve.getPointCount() - 1)->x, 1.0);
}

}  // namespace

TEST(CurveParam, defaultCurveIsZeroLineThroughId) {
  mv::CurveParam curve;
  EXPECT_EQ(curve.getPointCount(), 2);
  EXPECT_EQ(curve.minimum(), 0.0);
  EXPECT_EQ(curve.maximum(), 1.0);
  EXPECT_TRUE(curve.hasExpression());
  EXPECT_EQ(expressionOf(curve), "id(x)");
  EXPECT_EQ(curve.evaluate(0.3), 0.0);
  EXPECT_EQ(curve.getPoint(2), nullptr);
  EXPECT_EQ(curve.getPoint(-1), nullptr);
}

TEST(CurveParam, twoCornerPointsAreExactlyLinearAndClamped) {
  mv::CurveParam curve(0.0, 4.0, 1.0, 3.0, "x");
  for (double u : {0.0, 0.125, 0.5, 0.75, 1.0}) EXPECT_EQ(curve.evaluate(u), 1.0 + 2.0 * u);
  EXPECT_EQ(curve.evaluate(-2.0), 1.0);
  EXPECT_EQ(curve.evaluate(7.0), 3.0);
  mv::CurveParam smoothEnds(0.0, 1.0, std::map<double, double>{{0.0, 2.0}, {1.0, 4.0}}, false);
  EXPECT_EQ(smoothEnds.evaluateCurve(0.25), 2.5);  // no inner point: still linear
}

TEST(CurveParam, expressionSeesCurveAsXAndPositionAsU) {
  mv::CurveParam curve(0.0, 1.0, 0.5, 1.5, "sin");
  EXPECT_DOUBLE_EQ(curve.evaluate(0.5), std::sin(1.0));
  ASSERT_TRUE(curve.setExpression("u"));
  EXPECT_EQ(curve.evaluate(0.25), 0.25);
  ASSERT_TRUE(curve.setExpression("x*n+u"));
  curve.setVariables({{'n', 10.0}, {'x', 99.0}, {'u', 99.0}});  // x and u are always set anew
  EXPECT_DOUBLE_EQ(curve.evaluate(0.5), 10.5);
  EXPECT_EQ(curve.variables().at('x'), 99.0);
}

TEST(CurveParam, rndInExpressionAdvancesSharedGenerator) {
  mv::CurveParam curve(0.0, 1.0, 2.0, 2.0, "rnd(x)");
  mt::MersenneTwister copy = mt::MersenneTwister::shared();
  const double first = copy.next(), second = copy.next();
  EXPECT_DOUBLE_EQ(curve.evaluate(0.1), 2.0 * (2.0 * first - 1.0));
  EXPECT_DOUBLE_EQ(curve.evaluate(0.1), 2.0 * (2.0 * second - 1.0));
}

TEST(CurveParam, badExpressionInConstructorWarnsAndKeepsId) {
  CapturingMessageHandler messages;
  mv::CurveParam curve(0.0, 1.0, 0.0, 1.0, "x +");
  ASSERT_EQ(messages.warnings.size(), 1u);
  EXPECT_EQ(messages.warnings[0], "CurveParam initialized with invalid Expression (x +)!");
  EXPECT_EQ(expressionOf(curve), "id(x)");
}

TEST(CurveParam, badExpressionIsRefusedAndOldOneKept) {
  mv::CurveParam curve(0.0, 1.0, 0.0, 1.0, "x*2");
  const mv::Expression before = curve.expression();
  EXPECT_FALSE(curve.setExpression("2x"));
  EXPECT_EQ(expressionOf(curve), "x*2");
  EXPECT_TRUE(curve.expression() == before);
}

TEST(CurveParam, bezierSegmentsMatchIndependentReference) {
  struct Case {
    double outX, outY, inX, inY, u, expected;
  };
  // References from bisection on x(s) = u, not from the cubic formula: D > 0, D < 0 and the
  // triple root that counts as D = 0.
  const Case cases[] = {
      {0.5, 2.0, 0.5, -1.0, 0.2, 0.6065149028205542},
      {0.5, 2.0, 0.5, -1.0, 0.5, 0.5},
      {0.5, 2.0, 0.5, -1.0, 0.9, 0.6438656578906045},
      {0.0, 0.5, 1.0, 0.25, 0.25, 0.3107173004771478},
      {0.0, 0.5, 1.0, 0.25, 0.5, 0.40625},
      {0.0, 0.5, 1.0, 0.25, 0.8, 0.5598520413846535},
      {0.99, 1.0, 0.01, 0.0, 0.5, 0.5},
  };
  CapturingMessageHandler messages;
  for (const Case& c : cases) {
    const mv::CurveParam curve = bezierSegment(c.outX, c.outY, c.inX, c.inY);
    EXPECT_NEAR(curve.evaluateCurve(c.u), c.expected, 1e-12) << c.outX << " " << c.u;
  }
  EXPECT_TRUE(messages.errors.empty());
}

TEST(CurveParam, failedRootSearchReportsAndFallsBackToLinearParameter) {
  // Very near the start of a segment whose right control hugs the left end, the cubic's
  // discriminant counts as zero and no root lies inside: s = t is taken instead.
  mv::CurveParam curve;
  ASSERT_TRUE(curve.setPoint(freePoint(1, 1.0, 1.0, 1.0 / 60.0, 1.0, 1.0, 1.0), false));
  CapturingMessageHandler messages;
  const double s = 1e-6;
  EXPECT_DOUBLE_EQ(curve.evaluateCurve(s), ((-2.0 * s + 3.0) * s) * s);
  ASSERT_EQ(messages.errors.size(), 1u);
  EXPECT_EQ(
      messages.errors[0],
      "Curve Evaluation Problem: [-0.0514524 -0.000589592 -0.000589592] [0.95 0.05 0 -1e-06]");
}

TEST(CurveParam, controlsAtThirdsGiveThePolynomialInU) {
  // a = 0: s = t, so the value is the Bezier polynomial at u itself.
  const mv::CurveParam curve = bezierSegment(1.0 / 3.0, 2.0, 2.0 / 3.0, -1.0);
  for (double u : {0.1, 0.4, 0.7}) {
    const double v = 1 - u;
    EXPECT_NEAR(curve.evaluateCurve(u), 3 * v * v * u * 2.0 + 3 * v * u * u * -1.0 + u * u * u,
                1e-12);
  }
}

TEST(CurveParam, smoothPointGetsControlsFromNeighbours) {
  mv::CurveParam curve(0.0, 1.0, 0.0, 1.0, 0.0, mv::PointSmooth);
  const mv::CurvePoint& peak = *curve.findPoint(2);
  EXPECT_DOUBLE_EQ(peak.inX, 0.5 - 0.5 / 3.0);
  EXPECT_DOUBLE_EQ(peak.outX, 0.5 + 0.5 / 3.0);
  EXPECT_DOUBLE_EQ(peak.inY, 1.0);  // the chord slopes +2 and -2 average to a flat tangent
  EXPECT_DOUBLE_EQ(peak.outY, 1.0);
  EXPECT_NEAR(curve.evaluateCurve(0.25), 0.6436288688086924, 1e-12);
  EXPECT_NEAR(curve.evaluateCurve(0.9), 0.27893917049498806, 1e-12);
  EXPECT_EQ(curve.evaluateCurve(0.5), 1.0);

  // A smooth end point looks only at its one neighbour.
  ASSERT_TRUE(curve.setPointType(0, mv::PointSmooth));
  EXPECT_DOUBLE_EQ(curve.findPoint(0)->outX, 0.5 / 3.0);
  EXPECT_DOUBLE_EQ(curve.findPoint(0)->outY, 1.0 / 3.0);
}

TEST(CurveParam, smoothPointTangentIsMeanOfChordSlopes) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> value(-2.0, 2.0), position(0.02, 0.98);
  mv::CurveParam curve(-2.0, 2.0, value(random), value(random), "id");
  for (int i = 0; i < 12; ++i) curve.addPoint(position(random), value(random), mv::PointSmooth);
  expectCurveInvariants(curve);
  for (int index = 1; index + 1 < curve.getPointCount(); ++index) {
    const mv::CurvePoint &o = *curve.getPoint(index - 1), &p = *curve.getPoint(index),
                         &n = *curve.getPoint(index + 1);
    const double mean = 0.5 * ((p.y - o.y) / (p.x - o.x) + (n.y - p.y) / (n.x - p.x));
    EXPECT_NEAR((p.outY - p.y) / (p.outX - p.x), mean, 1e-9);
    EXPECT_NEAR((p.y - p.inY) / (p.x - p.inX), mean, 1e-9);
  }
}

TEST(CurveParam, endPointsStayInPlace) {
  mv::CurveParam curve;
  EXPECT_FALSE(curve.deletePoint(0));
  EXPECT_FALSE(curve.deletePoint(1));
  EXPECT_FALSE(curve.setPointX(1, 0.5));
  EXPECT_FALSE(curve.setPointX(0, 0.5));
  EXPECT_FALSE(curve.setPoint(mv::CurvePoint::at(0.1, 0.0, mv::PointCorner, 0), false));
  // Within 1e-8 of its place an end point is accepted and put exactly there.
  EXPECT_TRUE(curve.setPoint(mv::CurvePoint::at(1.0 - 5e-9, 2.0, mv::PointCorner, 1), false));
  EXPECT_EQ(curve.findPoint(1)->x, 1.0);
  EXPECT_EQ(curve.findPoint(1)->y, 2.0);
  EXPECT_FALSE(curve.setPointType(0, mv::PointMirrored));
  EXPECT_TRUE(curve.setPointType(1, mv::PointFree));
}

TEST(CurveParam, addPointGivesIdsAndEndValues) {
  mv::CurveParam curve;
  EXPECT_EQ(curve.addPoint(0.0, 5.0, mv::PointCorner), 0);
  EXPECT_EQ(curve.findPoint(0)->y, 5.0);
  EXPECT_EQ(curve.findPoint(0)->outY, 5.0);
  EXPECT_EQ(curve.addPoint(1.0 - 1e-9, -1.0, mv::PointCorner), 1);
  EXPECT_EQ(curve.findPoint(1)->y, -1.0);
  EXPECT_EQ(curve.getPointCount(), 2);
  EXPECT_EQ(curve.addPoint(0.5, 1.0, mv::PointCorner), 3);
  EXPECT_EQ(curve.addPoint(0.25, 1.0, mv::PointSmooth), 4);
  EXPECT_EQ(curve.getPointCount(), 4);
  EXPECT_EQ(curve.getPoint(1)->id, 4);  // sorted by x
  EXPECT_EQ(curve.getPointType(4), mv::PointSmooth);
  EXPECT_EQ(curve.getPointType(99), 0);
  // A refused point still returns its id.
  EXPECT_EQ(curve.addPoint(0.5 + 1e-9, 0.0, mv::PointCorner), 5);
  EXPECT_EQ(curve.getPointCount(), 4);
}

TEST(CurveParam, collidingEditsAreRefusedAndChangeNothing) {
  mv::CurveParam curve;
  curve.addPoint(0.5, 1.0, mv::PointCorner);  // id 3
  curve.addPoint(0.8, 0.0, mv::PointCorner);  // id 4
  const double before = curve.evaluate(0.6);

  EXPECT_FALSE(curve.setPoint(mv::CurvePoint::at(0.5 + 5e-9, 2.0, mv::PointCorner, 9), true));
  EXPECT_FALSE(curve.setPoint(mv::CurvePoint::at(0.5, 2.0, mv::PointCorner, 9), false));  // no add
  EXPECT_FALSE(curve.setPoint(mv::CurvePoint::at(1.5, 2.0, mv::PointCorner, 3), false));
  // A free point whose controls reach over a neighbour, or that lies inside its own controls
  // the wrong way round.
  EXPECT_FALSE(curve.setPoint(freePoint(9, 0.3, 0.0, 0.2, 0.0, 0.6, 0.0), true));
  EXPECT_FALSE(curve.setPoint(freePoint(9, 0.3, 0.0, 0.35, 0.0, 0.4, 0.0), true));
  ASSERT_TRUE(curve.setPoint(freePoint(9, 0.3, 0.0, 0.2, 0.0, 0.4, 0.0), true));
  // Nothing may land between the controls of a free point.
  EXPECT_EQ(curve.addPoint(0.35, 0.0, mv::PointCorner), 10);
  EXPECT_EQ(curve.getPointCount(), 5);
  // setPointX reports success even when the move was refused.
  EXPECT_TRUE(curve.setPointX(3, 0.8));
  EXPECT_EQ(curve.findPoint(3)->x, 0.5);
  EXPECT_FALSE(curve.setPointX(42, 0.1));
  EXPECT_EQ(curve.evaluate(0.6), before);
  expectCurveInvariants(curve);
}

TEST(CurveParam, pointEditsMoveControlsAlong) {
  mv::CurveParam curve;
  ASSERT_TRUE(curve.setPoint(freePoint(5, 0.5, 1.0, 0.4, 0.5, 0.7, 2.0), true));
  EXPECT_TRUE(curve.setPointX(5, 0.6));
  const mv::CurvePoint* moved = curve.findPoint(5);
  EXPECT_DOUBLE_EQ(moved->inX, 0.5);
  EXPECT_DOUBLE_EQ(moved->outX, 0.8);
  EXPECT_TRUE(curve.setPointY(5, 2.0));
  EXPECT_DOUBLE_EQ(moved->inY, 1.5);
  EXPECT_DOUBLE_EQ(moved->outY, 3.0);
  EXPECT_TRUE(curve.setPointY(0, 4.0));
  EXPECT_FALSE(curve.setPointY(17, 4.0));
  EXPECT_TRUE(curve.deletePoint(5));
  EXPECT_FALSE(curve.deletePoint(5));
  EXPECT_EQ(curve.evaluateCurve(0.5), 2.0);
}

TEST(CurveParam, setAllPointTypesReachesEndPointsUntested) {
  mv::CurveParam curve(0.0, 1.0, 0.0, 1.0, 0.0, mv::PointCorner);
  curve.setAllPointTypes(mv::PointMirrored);
  EXPECT_EQ(curve.getPointType(0), mv::PointMirrored);
  EXPECT_EQ(curve.getPointType(2), mv::PointMirrored);
  curve.setAllPointTypes(mv::PointSmooth);
  EXPECT_DOUBLE_EQ(curve.findPoint(2)->inX, 0.5 - 0.5 / 3.0);
  curve.clearPoints();
  EXPECT_EQ(curve.getPointCount(), 2);
  EXPECT_EQ(curve.evaluateCurve(0.5), 0.0);
}

TEST(CurveParam, limitsGrowAndFit) {
  mv::CurveParam curve(0.0, 1.0, -1.0, 3.0, "id");
  curve.growLimits();
  EXPECT_DOUBLE_EQ(curve.minimum(), -1.4);
  EXPECT_DOUBLE_EQ(curve.maximum(), 3.4);

  curve.setMinimum(-100.0);
  curve.setMaximum(0.0);
  curve.setFixedLimits(1);
  curve.fitLimits();
  EXPECT_EQ(curve.minimum(), -100.0);
  EXPECT_DOUBLE_EQ(curve.maximum(), 3.4);
  curve.setFixedLimits(0);
  curve.fitLimits();  // a limit too far out is pulled in
  EXPECT_DOUBLE_EQ(curve.minimum(), -1.4);

  mv::CurveParam flat(-5.0, 5.0, 2.0, 2.0, "id");
  flat.fitLimits();
  EXPECT_EQ(flat.minimum(), -5.0);
  EXPECT_EQ(flat.maximum(), 5.0);

  // Widened: the top by half the missing range, then the bottom by half of what is missing after
  // that; the margin stays a tenth of the measured range.
  mv::CurveParam narrow(-5.0, 5.0, 1.0, 1.004, "id");
  narrow.fitLimits();
  EXPECT_NEAR(narrow.maximum(), 1.007 + 0.0004, 1e-12);
  EXPECT_NEAR(narrow.minimum(), 0.9985 - 0.0004, 1e-12);
  narrow.setFixedLimits(3);
  narrow.setMinimum(-9.0);
  narrow.fitLimits();
  EXPECT_EQ(narrow.minimum(), -9.0);
}

TEST(CurveParam, scaleAndMultiply) {
  mv::CurveParam curve(0.0, 2.0, 1.0, 2.0, 1.0, mv::PointSmooth);
  curve.scale(3.0);
  EXPECT_EQ(curve.maximum(), 6.0);
  EXPECT_EQ(curve.findPoint(2)->y, 6.0);
  EXPECT_EQ(curve.findPoint(0)->y, 3.0);

  mv::CurveParam plain;
  ASSERT_TRUE(plain.multiply(2.0));
  EXPECT_EQ(expressionOf(plain), "2*(id(x))");
  ASSERT_TRUE(plain.multiply(0.5));
  EXPECT_EQ(expressionOf(plain), "0.5*(2*(id(x)))");
  EXPECT_FALSE(plain.multiply(1e20));  // "1e+20" is no expression
  EXPECT_EQ(expressionOf(plain), "0.5*(2*(id(x)))");
}

TEST(CurveParam, resampleTurnsExpressionIntoPoints) {
  mv::CurveParam curve(0.0, 1.0, 0.0, 1.0, "x*x");
  EXPECT_FALSE(curve.resample(1, mv::PointCorner));
  ASSERT_TRUE(curve.resample(5, mv::PointSmooth));
  EXPECT_EQ(curve.getPointCount(), 5);
  EXPECT_EQ(expressionOf(curve), "id(x)");
  for (int index = 0; index < 5; ++index) {
    const mv::CurvePoint& point = *curve.getPoint(index);
    EXPECT_DOUBLE_EQ(point.x, index / 4.0);
    EXPECT_DOUBLE_EQ(point.y, point.x * point.x);
    EXPECT_EQ(point.id, index == 0 ? 0 : index == 4 ? 1 : index + 1);
  }
  EXPECT_EQ(curve.getPointType(0), mv::PointCorner);
  EXPECT_EQ(curve.getPointType(3), mv::PointSmooth);
  EXPECT_DOUBLE_EQ(curve.minimum(), -0.1);
  EXPECT_DOUBLE_EQ(curve.maximum(), 1.1);

  mv::CurveParam two(0.0, 1.0, 1.0, 3.0, "u*x");
  ASSERT_TRUE(two.resample(2, mv::PointCorner));
  EXPECT_EQ(two.getPointCount(), 2);
  EXPECT_EQ(two.evaluate(0.5), 1.5);  // straight from evaluate(0) = 0 to evaluate(1) = 3

  mv::CurveParam timed(0.0, 1.0, 0.0, 1.0, "x*t");
  EXPECT_FALSE(timed.resample(20, mv::PointCorner));
  EXPECT_EQ(expressionOf(timed), "x*t");
}

TEST(CurveParam, mapConstructorBuildsSmoothCurve) {
  const std::map<double, double> points{{0.0, 1.0}, {0.3, 2.0}, {0.6, 0.0}, {1.0, 1.0}};
  mv::CurveParam curve(0.0, 2.0, points, false);
  ASSERT_EQ(curve.getPointCount(), 4);
  EXPECT_EQ(curve.getPointType(0), mv::PointSmooth);
  EXPECT_EQ(curve.getPoint(2)->x, 0.6);
  for (const auto& [x, y] : points) EXPECT_DOUBLE_EQ(curve.evaluate(x), y);
  mv::CurveParam empty(2.0, 4.0, {}, true);
  EXPECT_EQ(empty.evaluate(0.7), 3.0);
  EXPECT_FALSE(curve.hasInnerValueAbove(2.0));
  EXPECT_TRUE(curve.hasInnerValueAbove(1.5));
}

TEST(CurveParam, copiesAreIndependentValuesSharingTheExpression) {
  mv::CurveParam original(0.0, 1.0, 0.0, 1.0, "x*2");
  mv::CurveParam copy = original;
  EXPECT_TRUE(copy.expression() == original.expression());
  copy.addPoint(0.5, 5.0, mv::PointCorner);
  copy.setExpression("x");
  EXPECT_EQ(original.getPointCount(), 2);
  EXPECT_EQ(original.evaluate(0.5), 1.0);
  EXPECT_EQ(copy.evaluate(0.5), 5.0);
}
