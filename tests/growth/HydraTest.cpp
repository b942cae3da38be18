#include <gtest/gtest.h>

#include <cmath>

#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "growth/Hydra.h"
#include "support/CapturingMessageHandler.h"
#include "support/CountingGeomStream.h"
#include "support/GeometryExpectations.h"

namespace {

using mv::Hydra;

struct HydraCase {
  HydraCase() { hydra.initParameters(params, 100.0); }
  void constant(int id, double value) {
    params.setCurve(id, mv::CurveParam(-10, 10, value, value, "id"));
  }
  int evaluate(int roleMask = mv::RoleNodes) {
    placements.clear();
    return hydra.evaluate(params, stream, roleMask, placements, 1.0);
  }
  const mv::Placement& element(int i) const { return placements.at(0).placements.at(i); }

  Hydra hydra;
  mv::ParameterSetData params;
  CountingGeomStream stream;
  mv::PlacementList placements;
};

}  // namespace

TEST(Hydra, firstChildTakesTheElementsAndTheRestPassThrough) {
  Hydra hydra;
  mv::ParameterSetData params;
  std::vector<int> roles;
  ASSERT_TRUE(hydra.assignRoles(params, roles, 3));
  EXPECT_EQ(roles, (std::vector<int>{mv::RoleNodes, mv::RoleOther, mv::RoleOther}));
}

TEST(Hydra, ringSpacesElementsEquallyAtTheRadiusPointingOutward) {
  HydraCase c;
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  ASSERT_EQ(c.placements.size(), 1u);
  ASSERT_EQ(c.placements[0].placements.size(), 8u);
  EXPECT_FALSE(c.placements[0].closed);
  for (int i = 0; i < 8; ++i) {
    const mv::Placement& p = c.element(i);
    // The sweep runs from -pi in eighths of the circle, in the y-z plane.
    const double sweep = -M_PI + 2 * M_PI * i / 8;
    expectNear(p.matrix.position(), {0, 50 * std::sin(sweep), 50 * std::cos(sweep)}, 1e-12);
    expectFrameAlong(p.matrix, p.matrix.position());
    EXPECT_NEAR((c.element((i + 1) % 8).matrix.position() - p.matrix.position()).length(),
                100 * std::sin(M_PI / 8), 1e-12);
    EXPECT_TRUE(p.wantsData);
    EXPECT_EQ(p.index, i);
    EXPECT_EQ(p.count, 8);
    EXPECT_DOUBLE_EQ(p.position, i / 8.0);
    EXPECT_EQ(p.carriedGrowth, 1.0);
  }
  EXPECT_EQ(c.stream.pointCount, 0);
}

TEST(Hydra, tiltLeansEachElementOutOfTheRingInPlace) {
  HydraCase c;
  c.constant(Hydra::hydraTilt, 0.3);
  c.constant(Hydra::scale, 2.0);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  const mv::Matrix4 unspun = c.element(3).matrix;
  c.constant(Hydra::hydraSpin, 0.7);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  for (int i = 0; i < 8; ++i) {
    const mv::Matrix4& m = c.element(i).matrix;
    const mv::Vector3 outward = m.position().normalized();
    EXPECT_NEAR(m.position().length(), 50.0, 1e-12);
    const mv::Vector3 axis = m.row(2) / 2.0;  // scaled by 2
    EXPECT_NEAR(axis.x, -std::sin(0.3), 1e-12);
    EXPECT_NEAR(axis.dot(outward), std::cos(0.3), 1e-12);
    EXPECT_NEAR(m.row(0).length(), 2.0, 1e-12);
  }
  // Spin turns the element about its own axis, before the tilt and the sweep.
  const mv::Matrix4& spun = c.element(3).matrix;
  expectNear(spun.row(0), unspun.row(0) * std::cos(0.7) - unspun.row(1) * std::sin(0.7), 1e-12);
  expectNear(spun.row(2), unspun.row(2), 1e-12);
  expectNear(spun.position(), unspun.position(), 1e-12);
}

TEST(Hydra, starUsesSweepAndTiltAsPolarAngles) {
  HydraCase c;
  c.params.setInt(Hydra::hydraMode, Hydra::ModeStar);
  c.constant(Hydra::hydraTilt, 0.4);
  c.params.setDouble(Hydra::number, 4);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  for (int i = 0; i < 4; ++i) {
    const double sweep = -M_PI + 2 * M_PI * i / 4, tilt = 0.4;
    expectNear(c.element(i).matrix.position(),
               {50 * std::sin(sweep) * std::sin(tilt), 50 * std::sin(sweep) * std::cos(tilt),
                50 * std::cos(sweep)},
               1e-12);
  }
}

TEST(Hydra, fractionalNumberAddsAShrinkingLastElement) {
  HydraCase c;
  c.params.setDouble(Hydra::number, 2.5);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  ASSERT_EQ(c.placements[0].placements.size(), 3u);
  const double along[] = {0.0, 0.4, 0.8};
  for (int i = 0; i < 3; ++i) {
    const double sweep = -M_PI + 2 * M_PI * along[i];
    expectNear(c.element(i).matrix.position(), {0, 50 * std::sin(sweep), 50 * std::cos(sweep)},
               1e-12);
    EXPECT_DOUBLE_EQ(c.element(i).position, along[i]);
    EXPECT_EQ(c.element(i).count, 3);
    EXPECT_NEAR(c.element(i).matrix.row(0).length(), i == 2 ? 0.5 : 1.0, 1e-12);
  }

  c.params.setBool(Hydra::numberFractional, false);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  ASSERT_EQ(c.placements[0].placements.size(), 2u);
  expectNear(c.element(1).matrix.position(), {0, 0, 50}, 1e-12);  // sweep at 1 / 2: 0
  EXPECT_NEAR(c.element(1).matrix.row(0).length(), 1.0, 1e-12);
}

TEST(Hydra, singleElementStandsAtTheSweepStart) {
  HydraCase c;
  c.params.setDouble(Hydra::number, 1);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  ASSERT_EQ(c.placements[0].placements.size(), 1u);
  expectNear(c.element(0).matrix.position(), {0, 0, -50}, 1e-12);
}

TEST(Hydra, growthCurveScalesTheInheritedGrowthOverTheSequence) {
  HydraCase c;
  c.params.carriedGrowth = 0.5;
  c.params.setDouble(Hydra::number, 5);
  c.params.setCurve(Hydra::nodeGrowth, mv::CurveParam(0, 1, 0.0, 1.0, "id"));
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  for (int i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(c.element(i).carriedGrowth, 0.5);
  c.params.setBool(Hydra::nodeGrowthCurved, true);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  for (int i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(c.element(i).carriedGrowth, 0.5 * i / 4);
}

TEST(Hydra, placesNothingWithoutElementsOrRole) {
  CapturingMessageHandler messages;
  HydraCase c;
  EXPECT_EQ(c.evaluate(mv::RoleOther), 0);
  EXPECT_TRUE(c.placements.empty());
  for (double number : {0.0, -2.0, std::nan("")}) {
    c.params.setDouble(Hydra::number, number);
    EXPECT_EQ(c.evaluate(), 0);
    EXPECT_TRUE(c.placements.empty());
  }
  EXPECT_TRUE(messages.errors.empty());
  // Below one whole element without the fraction: an empty group, still reported as placed.
  c.params.setDouble(Hydra::number, 0.5);
  c.params.setBool(Hydra::numberFractional, false);
  ASSERT_EQ(c.evaluate(), mv::RoleNodes);
  ASSERT_EQ(c.placements.size(), 1u);
  EXPECT_TRUE(c.placements[0].placements.empty());

  c.params.setDouble(Hydra::number, 1e12);
  EXPECT_EQ(c.evaluate(), 0);
  EXPECT_EQ(messages.errors.size(), 1u);
}

TEST(Hydra, missingCurveIsReportedBeforeTheRoleTest) {
  CapturingMessageHandler messages;
  HydraCase c;
  c.params.curves.erase(Hydra::hydraSpin);
  EXPECT_EQ(c.evaluate(mv::RoleOther), 0);
  ASSERT_EQ(messages.errors.size(), 1u);
  EXPECT_EQ(messages.errors[0], "Parameter Retrieval failed!");
  EXPECT_TRUE(c.placements.empty());
}
