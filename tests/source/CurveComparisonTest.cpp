#include "source/CurveComparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

using mv::CurveParam;
using mv::CurvePoint;

namespace {

CurveParam threePoints() {
  CurveParam curve(0.0, 2.0, 0.5, 1.0, "x*2");
  curve.addPoint(0.25, 1.5, mv::PointSmooth);
  curve.addPoint(0.75, 0.5, mv::PointCorner);
  return curve;
}

}  // namespace

TEST(CurveComparison, copySharesTheTreeAndIsEqual) {
  const CurveParam curve = threePoints();
  const CurveParam copy = curve;
  EXPECT_EQ(CurveComparison::compare(&curve, &copy), 0);
}

TEST(CurveComparison, nullOnEitherSideCountsAsEqual) {
  const CurveParam curve;
  EXPECT_EQ(CurveComparison::compare(nullptr, &curve), 0);
  EXPECT_EQ(CurveComparison::compare(&curve, nullptr), 0);
}

TEST(CurveComparison, idsTakeNoPart) {
  const CurveParam curve = threePoints();
  CurveParam other = curve;
  CurvePoint renamed = *other.getPoint(1);
  ASSERT_TRUE(other.deletePoint(renamed.id));
  renamed.id = 42;
  ASSERT_TRUE(other.setPoint(renamed, true));
  EXPECT_EQ(CurveComparison::compare(&curve, &other), 0);
}

TEST(CurveComparison, eachFieldMakesADifference) {
  const CurveParam base = threePoints();
  const std::vector<std::function<void(CurveParam&)>> changes = {
      [](CurveParam& c) { c.setPointY(0, 0.25); },
      [](CurveParam& c) { c.setPointY(1, 0.25); },
      [](CurveParam& c) { c.setPointType(1, mv::PointFree); },
      [](CurveParam& c) { c.setPointX(3, 0.5); },
      [](CurveParam& c) { c.setPointType(4, mv::PointSmooth); },
      [](CurveParam& c) { c.addPoint(0.9, 0.0, mv::PointCorner); },
      [](CurveParam& c) { c.deletePoint(4); },
      [](CurveParam& c) { c.setExpression("x*2"); },
      [](CurveParam& c) { c.setMinimum(-1.0); },
      [](CurveParam& c) { c.setMaximum(3.0); },
      [](CurveParam& c) { c.setFixedLimits(2); },
  };
  for (size_t row = 0; row < changes.size(); ++row) {
    CurveParam changed = base;
    changes[row](changed);
    EXPECT_EQ(CurveComparison::compare(&base, &changed), 1) << "change " << row;
    EXPECT_EQ(CurveComparison::compare(&changed, &base), 1) << "change " << row;
  }
}

TEST(CurveComparison, aCurveHoldingNanDiffersFromItself) {
  CurveParam curve;
  curve.setMaximum(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(CurveComparison::compare(&curve, &curve), 1);
}
