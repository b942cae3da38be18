#include <gtest/gtest.h>

#include "curves/ParameterSetData.h"
#include "support/GeometryExpectations.h"

TEST(ParameterSetData, fixedIdsAnswerFromMembers) {
  mv::ParameterSetData params;
  bool ok = false;
  EXPECT_EQ(params.getDouble(mv::IdCarriedGrowth, &ok), 1.0);
  EXPECT_TRUE(ok);
  EXPECT_EQ(params.getDouble(6005, &ok), 0.0);
  EXPECT_FALSE(ok);
  EXPECT_EQ(params.getInt(mv::IdCount, &ok), 1);
  EXPECT_TRUE(ok);
  EXPECT_EQ(params.getNode(mv::IdClipNode, &ok), nullptr);
  EXPECT_TRUE(ok);

  params.setDouble(mv::IdCarriedGrowth, 0.25);  // stored in the map, never read
  params.carriedThickness = 0.5;
  EXPECT_EQ(params.getDouble(mv::IdCarriedGrowth), 1.0);
  EXPECT_EQ(params.getDouble(mv::IdCarriedThickness), 0.5);
  EXPECT_EQ(params.doubles.at(mv::IdCarriedGrowth), 0.25);
}

TEST(ParameterSetData, matricesAreFixedMembersOnly) {
  mv::ParameterSetData params;
  bool ok = false;
  expectNear(params.getMatrix(mv::IdWorldMatrix, &ok), mv::Matrix4());
  EXPECT_TRUE(ok);
  mv::Matrix4 moved;
  moved.translate({1, 2, 3});
  EXPECT_TRUE(params.setMatrix(77, moved));
  expectNear(params.getMatrix(77, &ok), mv::Matrix4());
  EXPECT_FALSE(ok);
  params.localMatrix = moved;
  expectNear(params.getMatrix(mv::IdLocalMatrix, &ok), moved);
}

TEST(ParameterSetData, kindsHaveSeparateIdSpaces) {
  mv::ParameterSetData params;
  params.setString(5, "five");
  params.setInt(5, 5);
  params.setString(5, "again");  // overwrites in place
  bool ok = true;
  EXPECT_EQ(params.getString(5), "again");
  EXPECT_EQ(params.getInt(5), 5);
  EXPECT_EQ(params.getVector(5, &ok), mv::Vector3());
  EXPECT_FALSE(ok);
  EXPECT_FALSE(params.getBool(5, &ok));
  EXPECT_FALSE(ok);
  EXPECT_EQ(params.getCurve(5, &ok), nullptr);
  EXPECT_FALSE(ok);
}

TEST(ParameterSetData, copyIsDeepAndClearKeepsFixedMembers) {
  mv::ParameterSetData original;
  original.setCurve(1300, mv::CurveParam(0.0, 1.0, 1.0, 2.0, "id"));
  original.setVector(3, {1, 2, 3});
  original.carriedDensity = 0.5;
  mv::ParameterSetData copy = original;
  copy.getCurve(1300)->addPoint(0.5, 10.0, mv::PointCorner);
  EXPECT_EQ(original.getCurve(1300)->evaluate(0.5), 1.5);
  EXPECT_EQ(copy.getCurve(1300)->evaluate(0.5), 10.0);
  EXPECT_EQ(copy.getDouble(mv::IdCarriedDensity), 0.5);

  copy.clear();
  EXPECT_EQ(copy.getCurve(1300), nullptr);
  EXPECT_EQ(copy.getVector(3), mv::Vector3());
  EXPECT_EQ(copy.getDouble(mv::IdCarriedDensity), 0.5);
  EXPECT_NE(original.getCurve(1300), nullptr);
}
