#include <gtest/gtest.h>

#include <cmath>

#include "curves/ParameterSetData.h"
#include "growth/Tropism.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/SplineBuilders.h"
#include "support/StubNode.h"

namespace {

using mv::Tropism;

struct TropismCase {
  TropismCase() { tropism.initParameters(params, 100.0); }
  void strength(double start, double end) {
    params.setCurve(Tropism::tropismStrength, mv::CurveParam(-10, 10, start, end, "id"));
  }
  bool deform(mv::SplineData& spline, const mv::Matrix4& toWorld = mv::Matrix4()) {
    return tropism.deformSpline(params, spline, toWorld);
  }

  Tropism tropism;
  mv::ParameterSetData params;
};

// A path of count points along +x from the origin to (1, 0, 0).
mv::SplineData straightPath(int count) {
  mv::SplineData spline;
  appendSegment(spline, linePoints(count, {0, 0, 0}, {1, 0, 0}));
  return spline;
}

mv::Vector3 pieceOf(const mv::SplineData& spline, size_t i) {
  return spline.points[i + 1].position - spline.points[i].position;
}

}  // namespace

TEST(Tropism, bendsAStraightPathTowardTheAxisIndependentlyOfSampling) {
  // In the limit of fine steps the heading h from the path toward +z obeys dh/dx = c cos h,
  // so at the end h = gd(c) = 2 atan(tanh(c / 2)).
  const double c = 0.6;
  mv::Vector3 ends[2];
  double headings[2];
  int index = 0;
  for (int count : {10, 1000}) {
    TropismCase t;
    t.strength(c, c);
    mv::SplineData path = straightPath(count);
    ASSERT_TRUE(t.deform(path));
    const mv::Vector3 last = pieceOf(path, count - 2).normalized();
    headings[index] = std::atan2(last.z, last.x);
    EXPECT_NEAR(headings[index], 2 * std::atan(std::tanh(c / 2)), count == 10 ? 2e-2 : 2e-4);
    for (int i = 0; i + 1 < count; ++i) {
      EXPECT_NEAR(pieceOf(path, i).length(), 1.0 / (count - 1), 1e-12);  // rigid turns
      EXPECT_NEAR(path.points[i].position.y, 0.0, 1e-12);
      EXPECT_DOUBLE_EQ(path.points[i].t, i / (count - 1.0));
    }
    expectNear(path.points[0].position, {0, 0, 0});
    ends[index++] = path.points.back().position;
  }
  // The coarse path ends within a third of its step length of the fine one; the rest is the
  // polyline's own sampling of the curve it bends into.
  EXPECT_GT(ends[1].z, 0.25);
  EXPECT_NEAR(headings[0], headings[1], 2e-2);
  EXPECT_NEAR((ends[0] - ends[1]).length(), 0.0, 1.0 / 9 / 3);
}

TEST(Tropism, strengthSignAndNothingAtZero) {
  TropismCase t;
  t.strength(0.0, 0.0);
  mv::SplineData path = straightPath(20);
  const mv::SplineData original = path;
  ASSERT_TRUE(t.deform(path));
  for (size_t i = 0; i < path.points.size(); ++i) {
    EXPECT_EQ(path.points[i].position, original.points[i].position);
  }
  t.strength(-0.5, -0.5);
  ASSERT_TRUE(t.deform(path));
  EXPECT_LT(path.points.back().position.z, -0.1);

  // Axis 0 is +x, along the path: nothing to turn toward.
  t.strength(0.5, 0.5);
  t.params.setInt(Tropism::tropismAxis, 0);
  mv::SplineData along = straightPath(20);
  ASSERT_TRUE(t.deform(along));
  expectNear(along.points.back().position, {1, 0, 0}, 1e-12);
}

TEST(Tropism, directionComesFromTargetOrSpace) {
  // The fixed axis turns with the target; the spline's own space is undone through toWorld.
  TropismCase t;
  t.strength(0.5, 0.5);
  StubNode turned(mv::Matrix4::rotationX(-M_PI / 2));  // carries +z to +y
  t.params.setNode(Tropism::tropismTarget, &turned);
  mv::SplineData path = straightPath(30);
  ASSERT_TRUE(t.deform(path));
  EXPECT_GT(path.points.back().position.y, 0.1);
  EXPECT_NEAR(path.points.back().position.z, 0.0, 1e-12);

  TropismCase local;
  local.strength(0.5, 0.5);
  mv::SplineData inSpace = straightPath(30);
  ASSERT_TRUE(local.deform(inSpace, mv::Matrix4::rotationX(M_PI / 2)));  // local +y is world +z
  EXPECT_GT(inSpace.points.back().position.y, 0.1);
  EXPECT_NEAR(inSpace.points.back().position.z, 0.0, 1e-12);
}

TEST(Tropism, towardTargetBendsToItsPosition) {
  TropismCase t;
  t.strength(2.0, 2.0);
  t.params.setInt(Tropism::tropismMode, Tropism::ModeTowardTarget);
  StubNode target(mv::Matrix4::translation({1, -1, 0}));
  t.params.setNode(Tropism::tropismTarget, &target);
  mv::SplineData path = straightPath(50);
  ASSERT_TRUE(t.deform(path));
  EXPECT_LT(path.points.back().position.y, -0.1);
  EXPECT_NEAR(path.points.back().position.z, 0.0, 1e-12);

  // Without a target the world's origin pulls: a path starting away from it curls back.
  TropismCase origin;
  origin.strength(2.0, 2.0);
  origin.params.setInt(Tropism::tropismMode, Tropism::ModeTowardTarget);
  mv::SplineData away;
  appendSegment(away, linePoints(50, {0, 1, 0}, {1, 1, 0}));
  ASSERT_TRUE(origin.deform(away));
  EXPECT_LT(away.points.back().position.y, 0.9);
}

TEST(Tropism, alongTargetFollowsTheTargetSplinesTangent) {
  TropismCase t;
  t.strength(1.0, 1.0);
  t.params.setInt(Tropism::tropismMode, Tropism::ModeAlongTarget);
  mv::SplineData path = straightPath(20);
  const mv::SplineData original = path;
  ASSERT_TRUE(t.deform(path));  // no target: nothing moves
  StubNode notASpline;
  t.params.setNode(Tropism::tropismTarget, &notASpline);
  ASSERT_TRUE(t.deform(path));
  for (size_t i = 0; i < path.points.size(); ++i) {
    EXPECT_EQ(path.points[i].position, original.points[i].position);
  }
  mv::SplineData guide;
  appendSegment(guide, linePoints(5, {0, 2, 0}, {0, 2, -3}));  // runs along -z
  StubNode guideNode(mv::Matrix4(), &guide);
  t.params.setNode(Tropism::tropismTarget, &guideNode);
  ASSERT_TRUE(t.deform(path));
  EXPECT_LT(path.points.back().position.z, -0.2);
}

TEST(Tropism, segmentsBendOnTheirOwnAndShortOnesAreSkipped) {
  TropismCase t;
  t.strength(0.5, 0.5);
  mv::SplineData path;
  appendSegment(path, {{5, 5, 5}});
  appendSegment(path, linePoints(10, {0, 0, 0}, {1, 0, 0}));
  appendSegment(path, linePoints(10, {0, 3, 0}, {1, 3, 0}));
  ASSERT_TRUE(t.deform(path));
  expectNear(path.points[0].position, {5, 5, 5});
  expectNear(path.points[1].position, {0, 0, 0});
  expectNear(path.points[11].position, {0, 3, 0});
  expectNear(path.points[10].position - path.points[1].position,
             path.points[20].position - path.points[11].position, 1e-12);
  EXPECT_GT(path.points[10].position.z, 0.1);
}

TEST(Tropism, followingGrowthStretchesTheCurveOverTheGrownPart) {
  TropismCase t;
  t.strength(1.0, 1.0);
  t.params.setBool(Tropism::tropismFollowGrowth, true);
  t.params.carriedGrowth = 0.5;
  t.params.setDouble(mv::IdGrowthAbove, 1.0);
  mv::SplineData path = straightPath(21);
  ASSERT_TRUE(t.deform(path));
  // The whole curve falls on the first half: the second half runs straight on.
  for (int i = 11; i < 20; ++i) expectNear(pieceOf(path, i), pieceOf(path, 10), 1e-12);
  EXPECT_GT(pieceOf(path, 10).z, pieceOf(path, 5).z);

  // A path that has not grown is left alone.
  t.params.carriedGrowth = 0.0;
  mv::SplineData ungrown = straightPath(21);
  ASSERT_TRUE(t.deform(ungrown));
  expectNear(ungrown.points.back().position, {1, 0, 0});
}

TEST(Tropism, badInputLeavesThePathAlone) {
  CapturingMessageHandler messages;
  TropismCase t;
  t.params.curves.erase(Tropism::tropismStrength);
  mv::SplineData path = straightPath(5);
  EXPECT_FALSE(t.deform(path));
  ASSERT_EQ(messages.errors.size(), 1u);
  EXPECT_EQ(messages.errors[0], "Parameter Retrieval failed!");
  expectNear(path.points.back().position, {1, 0, 0});

  // Steps of no length (all points in one place), an empty spline, a strength of no number.
  TropismCase zero;
  mv::SplineData collapsed;
  appendSegment(collapsed, linePoints(5, {1, 1, 1}, {1, 1, 1}));
  ASSERT_TRUE(zero.deform(collapsed));
  for (const auto& point : collapsed.points) expectNear(point.position, {1, 1, 1});
  mv::SplineData empty;
  EXPECT_TRUE(zero.deform(empty));
  zero.strength(std::nan(""), std::nan(""));
  mv::SplineData unbent = straightPath(5);
  ASSERT_TRUE(zero.deform(unbent));
  expectNear(unbent.points.back().position, {1, 0, 0});
  EXPECT_EQ(messages.errors.size(), 1u);
}
