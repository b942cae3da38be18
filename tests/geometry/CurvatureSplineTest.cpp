#include <gtest/gtest.h>

#include <cmath>

#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/CurvatureSpline.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"

namespace {

using mv::CurvatureSpline;

// A curvature spline's parameters at their defaults (scale 1), with curve id set to the constant
// value given.
struct Walk {
  Walk() { spline.initParameters(params, 1.0); }
  void constant(int id, double value) {
    params.setCurve(id, mv::CurveParam(-10, 10, value, value, "id"));
  }
  bool compute() { return spline.computeFrames(params, 1.0); }
  mv::Vector3 position(uint32_t i) const { return spline.frames()[i].matrix.position(); }

  CurvatureSpline spline;
  mv::ParameterSetData params;
};

// Centre of the circle through three points.
mv::Vector3 circumcenter(const mv::Vector3& a, const mv::Vector3& b, const mv::Vector3& c) {
  const mv::Vector3 ab = b - a, ac = c - a, n = ab.cross(ac);
  return a + (n.cross(ab) * ac.dot(ac) + ac.cross(n) * ab.dot(ab)) / (2.0 * n.dot(n));
}

}  // namespace

TEST(CurvatureSpline, defaultCurvesWalkAStraightLineAlongZ) {
  Walk walk;
  ASSERT_TRUE(walk.compute());
  ASSERT_EQ(walk.spline.getPointCount(), 21u);
  EXPECT_EQ(walk.spline.getSegmentCount(), 1u);
  EXPECT_FALSE(walk.spline.isSegmentClosed(0));
  EXPECT_EQ(walk.spline.getSegmentPointCount(1), 0u);
  for (uint32_t i = 0; i <= 20; ++i) {
    double t = -1;
    mv::Vector3 point;
    ASSERT_TRUE(walk.spline.getPoint(i, t, point));
    EXPECT_DOUBLE_EQ(t, i / 20.0);
    expectNear(point, {0, 0, 0.25 * i}, 1e-12);  // 5 units a step of 1 / 20
    expectFrameAlong(walk.spline.frames()[i].matrix, {0, 0, 1});
  }
  EXPECT_EQ(walk.spline.frames()[0].matrix, mv::Matrix4());
}

TEST(CurvatureSpline, constantTurnAboutXWalksACircleArc) {
  Walk walk;
  const double turn = 1.5, steps = 20, a = 1.0 / (steps + 1), d = 5.0 / steps;
  walk.constant(CurvatureSpline::curv_rota_x, turn);
  ASSERT_TRUE(walk.compute());
  // Chords of length d, each turned by turn * a: a regular polygon in the y-z plane.
  const double radius = d / (2 * std::sin(turn * a / 2));
  const mv::Vector3 centre = circumcenter(walk.position(0), walk.position(1), walk.position(2));
  for (uint32_t i = 0; i <= 20; ++i) {
    EXPECT_NEAR((walk.position(i) - centre).length(), radius, 1e-9) << i;
    EXPECT_NEAR(walk.position(i).x, 0.0, 1e-12);
  }
  // The total turn is the curve value times n * a; the positive value turns toward +y.
  const mv::Vector3 lastAxis = walk.spline.frames()[20].matrix.row(2);
  EXPECT_NEAR(std::acos(lastAxis.z), turn * steps * a, 1e-9);
  EXPECT_GT(lastAxis.y, 0.0);
}

TEST(CurvatureSpline, turnAndRollTogetherWalkAHelix) {
  Walk walk;
  walk.constant(CurvatureSpline::curv_rota_x, 2.0);
  walk.constant(CurvatureSpline::curv_rota_z, 1.0);
  walk.params.setDouble(CurvatureSpline::curvSteps, 60);
  ASSERT_TRUE(walk.compute());
  // Every step is the same rigid motion, so the points lie on a helix about that motion's axis.
  const mv::Matrix4 step = walk.spline.frames()[1].matrix;
  const mv::Vector3 axis = mv::Vector3(step.at(1, 2) - step.at(2, 1), step.at(2, 0) - step.at(0, 2),
                                       step.at(0, 1) - step.at(1, 0))
                               .normalized();
  expectNear(step.transformVector(axis), axis, 1e-12);
  auto flat = [&](uint32_t i) { return walk.position(i) - axis * walk.position(i).dot(axis); };
  const mv::Vector3 centre = circumcenter(flat(0), flat(1), flat(2));
  const double radius = (flat(0) - centre).length();
  const double rise = (walk.position(1) - walk.position(0)).dot(axis);
  EXPECT_GT(std::fabs(rise), 1e-3);  // not a planar circle
  for (uint32_t i = 0; i <= 60; ++i) {
    EXPECT_NEAR((flat(i) - centre).length(), radius, 1e-9) << i;
    EXPECT_NEAR(walk.position(i).dot(axis), i * rise, 1e-9) << i;
  }
}

TEST(CurvatureSpline, fractionalStepsShortenTheLastStep) {
  Walk walk;
  walk.params.setDouble(CurvatureSpline::curvSteps, 2.5);
  walk.constant(CurvatureSpline::curv_rota_x, 1.0);
  ASSERT_TRUE(walk.compute());
  ASSERT_EQ(walk.spline.getPointCount(), 4u);
  const double ts[] = {0.0, 0.4, 0.8, 1.0};
  for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(walk.spline.frames()[i].t, ts[i]);
  // Full steps move 5 * 0.4 = 2; the last moves half of that and turns by sin(pi / 4) of a step.
  const auto& f = walk.spline.frames();
  EXPECT_NEAR((walk.position(2) - walk.position(1)).length(), 2.0, 1e-12);
  EXPECT_NEAR((walk.position(3) - walk.position(2)).length(), 1.0, 1e-12);
  EXPECT_NEAR(std::acos(f[2].matrix.row(2).dot(f[3].matrix.row(2))), std::sin(M_PI / 4) / 3.5,
              1e-12);

  walk.params.setBool(CurvatureSpline::curvFractional, false);
  ASSERT_TRUE(walk.compute());
  ASSERT_EQ(walk.spline.getPointCount(), 3u);
  EXPECT_DOUBLE_EQ(walk.spline.frames()[1].t, 0.5);
  EXPECT_DOUBLE_EQ(walk.spline.frames()[2].t, 1.0);
}

TEST(CurvatureSpline, angleFrameIsStoredAtAFrameAndBlendedBetween) {
  Walk walk;
  walk.constant(CurvatureSpline::curv_rota_y, 2.0);
  ASSERT_TRUE(walk.compute());
  const auto& f = walk.spline.frames();
  mv::Matrix4 frame;
  walk.spline.getAngleFrame(f[7].t, 0, true, frame);
  EXPECT_EQ(frame, f[7].matrix);
  walk.spline.getAngleFrame((f[7].t + 3 * f[8].t) / 4, 0, true, frame);
  for (int e = 0; e < 16; ++e) {
    EXPECT_NEAR(frame.m[e], 0.25 * f[7].matrix.m[e] + 0.75 * f[8].matrix.m[e], 1e-12);
  }
  walk.spline.getAngleFrame(2.0, 0, true, frame);
  EXPECT_EQ(frame, f.back().matrix);
  mv::Vector3 position, tangent;
  walk.spline.getPosition(f[3].t, 0, false, position);
  walk.spline.getTangent(f[3].t, 0, false, tangent);
  EXPECT_EQ(position, f[3].matrix.row(3));
  EXPECT_EQ(tangent, f[3].matrix.row(2));

  CurvatureSpline empty;
  empty.getAngleFrame(0.5, 0, true, frame);
  EXPECT_EQ(frame, mv::Matrix4());
}

TEST(CurvatureSpline, refusesEditingFromOutside) {
  Walk walk;
  ASSERT_TRUE(walk.compute());
  EXPECT_FALSE(walk.spline.setPoint(0, 0.0, {1, 2, 3}));
  EXPECT_FALSE(walk.spline.allocate(3, 1));
  EXPECT_FALSE(walk.spline.setSegment(0, 3, false));
  EXPECT_FALSE(walk.spline.finish());
  EXPECT_EQ(walk.spline.getPointCount(), 21u);
  double t;
  mv::Matrix4 frame;
  EXPECT_FALSE(walk.spline.getPointAngleFrame(21, t, frame));
}

TEST(CurvatureSpline, placesRoleOneAtEveryFrame) {
  Walk walk;
  walk.params.setDouble(CurvatureSpline::curvSteps, 4);
  mv::PlacementList placements;
  EXPECT_EQ(walk.spline.placeChildren(walk.params, mv::RoleNodes, placements, 1.0), 0);
  EXPECT_TRUE(placements.empty());
  ASSERT_EQ(walk.spline.placeChildren(walk.params, mv::RoleProfile, placements, 1.0), 1);
  ASSERT_EQ(placements.size(), 1u);
  ASSERT_EQ(placements[0].placements.size(), 5u);
  for (int i = 0; i < 5; ++i) {
    const mv::Placement& p = placements[0].placements[i];
    EXPECT_TRUE(p.wantsData);
    EXPECT_EQ(p.index, i);
    EXPECT_EQ(p.count, 5);
    EXPECT_DOUBLE_EQ(p.position, i / 4.0);
    EXPECT_EQ(p.matrix, walk.spline.frames()[i].matrix);
  }
}

TEST(CurvatureSpline, badInputKeepsTheFramesAndSaysWhy) {
  CapturingMessageHandler messages;
  Walk walk;
  ASSERT_TRUE(walk.compute());
  walk.params.curves.erase(CurvatureSpline::curv_rota_y);
  EXPECT_FALSE(walk.compute());
  walk.spline.initParameters(walk.params, 1.0);
  walk.params.curves.erase(CurvatureSpline::curv_tran_z);
  EXPECT_FALSE(walk.compute());
  ASSERT_EQ(messages.errors.size(), 2u);
  EXPECT_EQ(messages.errors[0], "Parameter Retrieval failed!CurvatureSpline::curv_rota_x,y,z");
  EXPECT_EQ(messages.errors[1], "Parameter Retrieval failed!CurvatureSpline::curv_tran_x,y,z");
  EXPECT_EQ(walk.spline.getPointCount(), 21u);

  walk.spline.initParameters(walk.params, 1.0);
  walk.params.setDouble(CurvatureSpline::curvSteps, NAN);
  EXPECT_FALSE(walk.compute());
  walk.params.setDouble(CurvatureSpline::curvSteps, 1e12);
  EXPECT_FALSE(walk.compute());
  EXPECT_EQ(walk.spline.getPointCount(), 21u);

  // No steps: the walk stands at its start; negative steps: no frame at all.
  walk.params.setDouble(CurvatureSpline::curvSteps, 0.0);
  ASSERT_TRUE(walk.compute());
  ASSERT_EQ(walk.spline.getPointCount(), 1u);
  EXPECT_EQ(walk.spline.frames()[0].matrix, mv::Matrix4());
  EXPECT_EQ(walk.spline.frames()[0].t, 0.0);
  walk.params.setBool(CurvatureSpline::curvFractional, false);
  ASSERT_TRUE(walk.compute());
  EXPECT_EQ(walk.spline.getPointCount(), 1u);
  walk.params.setDouble(CurvatureSpline::curvSteps, -3.0);
  ASSERT_TRUE(walk.compute());
  EXPECT_EQ(walk.spline.getPointCount(), 0u);
}
