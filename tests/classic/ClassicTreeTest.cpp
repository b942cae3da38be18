// The classic tree as a node: its tube, the branch knots along the trunk, the top element, how
// growth, thickness and density pass to the branches, the arrangements and older versions.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicSimple.h"
#include "classic/ClassicTree.h"
#include "classic/Node.h"
#include "classic/SolidParameters.h"
#include "classic/Sphere.h"
#include "core/ChildRole.h"
#include "curves/CurveParam.h"
#include "curves/ParameterSetData.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/PatchRecorder.h"
#include "support/ProfileNode.h"

using namespace mv;

namespace {

CurveParam constant(double value) { return CurveParam(0.0, 1.0, value, value, "id"); }

// A straight tree of length 3 with three knots at 0.25, 0.5, 0.75 and constant curves, no
// photo correction, and a circle of radius 1 in 8 points as its profile.
struct TreeFixture {
  TreeFixture() {
    tree.initParameters(params, 1.0);
    params.setDouble(IdPhotoStrength, 0.0);
    params.setCurve(IdTreeBranchiness, constant(1.0));
    params.setDouble(IdTreeBranchNum, 3.0);
    params.setDouble(IdTreeSegments, 10.0);
    params.setDouble(IdTreeLength, 3.0);
    params.setCurve(IdTreeShape, constant(0.5));
    params.setCurve(IdTreeScrew, constant(1.0));
    params.setCurve(IdTreeAngle, constant(0.4));
    params.setCurve(IdTreeScale, constant(0.8));
    params.setCurve(IdTreeDense, constant(0.5));
    params.setBool(IdTreeTop, false);
    params.profileNode = &profile;
  }
  int evaluate(int mask = RoleNodes | RoleEnd | RoleOther) {
    return tree.evaluate(params, stream, mask, placements, 1.0);
  }
  const PlacementGroup* group(int role) const {
    for (const PlacementGroup& g : placements) {
      if (g.role == role) return &g;
    }
    return nullptr;
  }

  ClassicTree tree;
  ParameterSetData params;
  ProfileNode profile = ProfileNode::circle(1.0, 8);
  PatchRecorder stream;
  PlacementList placements;
};

// The sample parameters of the fixture's trunk: five extra samples spread by interval length
// (the third interval's share rounds down to none, the last takes the rest), then the top.
const std::vector<double> kSampleU{0.0, 0.125, 0.25, 0.375, 0.5, 0.75, 0.8125, 0.875, 0.9375, 1.0};

}  // namespace

TEST(ClassicTree, straightTrunkWithConstantThicknessIsAnEvenTube) {
  TreeFixture f;
  EXPECT_EQ(f.evaluate(), RoleNodes | RoleEnd | RoleOther);
  ASSERT_EQ(f.stream.patches.size(), 1u);
  const auto& patch = f.stream.patches[0];
  ASSERT_EQ(patch.countU, 9);
  ASSERT_EQ(patch.countV, 10);
  EXPECT_EQ((patch.countU - 1) * (patch.countV - 1), 72);  // quads of the tube
  for (int v = 0; v < patch.countV; ++v) {
    for (int u = 0; u < patch.countU; ++u) {
      const Vector3 p = patch.at(u, v);
      EXPECT_NEAR(std::hypot(p.x, p.y), 0.5, 1e-9);
      EXPECT_NEAR(p.z, kSampleU[v] * 3.0, 1e-9);
    }
  }
}

TEST(ClassicTree, topClosesTheTubeAndNoProfileMeansNoTube) {
  TreeFixture f;
  f.params.setBool(IdTreeTop, true);
  f.evaluate();
  const auto& patch = f.stream.patches.at(0);
  for (int u = 0; u < patch.countU; ++u) expectNear(patch.at(u, 9), {0, 0, 3}, 1e-9);
  TreeFixture bare;
  bare.params.profileNode = nullptr;
  EXPECT_EQ(bare.evaluate(), RoleNodes | RoleEnd | RoleOther);
  EXPECT_TRUE(bare.stream.patches.empty());
}

TEST(ClassicTree, branchesStandAtTheKnotsTurnedByTheScrewAndTiltedByTheAngle) {
  TreeFixture f;
  f.evaluate();
  const PlacementGroup* knots = f.group(RoleNodes);
  ASSERT_NE(knots, nullptr);
  ASSERT_EQ(knots->placements.size(), 3u);
  for (int k = 0; k < 3; ++k) {
    const Placement& p = knots->placements[k];
    const double x = 0.25 * (k + 1), acc = M_PI + (k + 1) * 1.0;
    EXPECT_NEAR(p.position, x, 1e-12);
    EXPECT_EQ(p.index, k);
    EXPECT_EQ(p.count, 3);
    EXPECT_TRUE(p.wantsData);
    expectNear(p.matrix.position(), {0, 0, 3 * x}, 1e-9);
    expectOrthonormalFrame(p.matrix);
    const Vector3 lean{std::sin(acc), std::cos(acc), 0};
    expectNear(p.matrix.row(2), lean * std::sin(0.4) + Vector3{0, 0, std::cos(0.4)}, 1e-9);
    EXPECT_NEAR(p.carriedGrowth, 0.8, 1e-12);
    EXPECT_NEAR(p.carriedThickness, 0.5, 1e-12);
    EXPECT_NEAR(p.carriedDensity, 0.5, 1e-12);
  }
  const PlacementGroup* top = f.group(RoleEnd);
  ASSERT_NE(top, nullptr);
  ASSERT_EQ(top->placements.size(), 1u);
  expectNear(top->placements[0].matrix, Matrix4::translation({0, 0, 3}), 1e-9);
  EXPECT_EQ(top->placements[0].position, 1.0);
  const PlacementGroup* other = f.group(RoleOther);
  ASSERT_NE(other, nullptr);
  expectNear(other->placements.at(0).matrix, Matrix4());
  EXPECT_FALSE(other->placements[0].wantsData);
}

TEST(ClassicTree, branchesInheritGrowthAndThickness) {
  TreeFixture f;
  f.params.carriedGrowth = 0.5;
  f.params.carriedThickness = 0.6;
  f.params.setDouble(IdTreeIniScale, 1.0);
  f.evaluate();
  // Only the knot below the growth stands, with its share of the growth.
  const PlacementGroup* knots = f.group(RoleNodes);
  ASSERT_EQ(knots->placements.size(), 1u);
  EXPECT_NEAR(knots->placements[0].carriedGrowth, 0.8 * 0.5, 1e-12);
  EXPECT_NEAR(knots->placements[0].carriedThickness, 0.5 * 0.6, 1e-12);
  // The tube ends at the growth: five rings up to x 0.5, radius times the thickness.
  const auto& patch = f.stream.patches.at(0);
  EXPECT_EQ(patch.countV, 5);
  EXPECT_NEAR(patch.at(0, 4).z, 1.5, 1e-9);
  EXPECT_NEAR(std::hypot(patch.at(2, 4).x, patch.at(2, 4).y), 0.5 * 0.6, 1e-9);
  const Placement& top = f.group(RoleEnd)->placements.at(0);
  EXPECT_NEAR(top.position, 0.5, 1e-12);
  expectNear(top.matrix.position(), {0, 0, 1.5}, 1e-9);
}

TEST(ClassicTree, pairedArrangementPlacesTwoBranchesPerKnot) {
  TreeFixture f;
  f.params.setInt(IdTreePairs, 4);
  f.evaluate(RoleNodes);
  const PlacementGroup* knots = f.group(RoleNodes);
  ASSERT_EQ(knots->placements.size(), 6u);
  for (int i = 0; i < 6; ++i) {
    const Placement& p = knots->placements[i];
    EXPECT_EQ(p.index, i);
    EXPECT_EQ(p.count, 3);
    // The pair leans to opposite sides of the trunk.
    if (i % 2 == 1) {
      const Vector3 a = knots->placements[i - 1].matrix.row(2), b = p.matrix.row(2);
      EXPECT_NEAR(a.z, b.z, 1e-9);
      EXPECT_NEAR(a.x, -b.x, 1e-9);
      EXPECT_NEAR(a.y, -b.y, 1e-9);
    }
  }
  EXPECT_EQ(f.group(RoleEnd), nullptr);
}

TEST(ClassicTree, olderVersionsReadTheDensityElsewhere) {
  for (int version : {3, 5}) {
    TreeFixture f;
    f.params.setInt(IdTreeVersion, version);
    f.params.setCurve(IdTreeDense, CurveParam(0, 1, 0, 1, "id"));
    f.params.carriedGrowth = 0.5;
    f.evaluate(RoleNodes);
    const Placement& p = f.group(RoleNodes)->placements.at(0);
    EXPECT_NEAR(p.position, 0.25, 1e-9);
    // Version 5 reads dense at the plain parameter, version 3 at x / growth.
    EXPECT_NEAR(p.carriedDensity, version == 5 ? 0.25 : 0.5, 1e-9) << version;
  }
}

TEST(ClassicTree, withoutBranchinessOrCurvesNothingIsPlaced) {
  TreeFixture f;
  f.params.setCurve(IdTreeBranchiness, constant(0.0));
  EXPECT_EQ(f.evaluate(), 0);
  EXPECT_TRUE(f.placements.empty());
  EXPECT_TRUE(f.stream.patches.empty());
  TreeFixture missing;
  missing.params.curves.erase(IdTreeGeomScale);
  EXPECT_EQ(missing.evaluate(), 0);
  EXPECT_TRUE(missing.placements.empty());
  TreeFixture ungrown;
  ungrown.params.setDouble(IdTreeIniScale, 0.0);
  EXPECT_EQ(ungrown.evaluate(), 0);
}

TEST(ClassicTree, rolesAndTheTreeTheDefaultsMake) {
  ClassicTree tree;
  ParameterSetData params;
  tree.initParameters(params, 2.0);
  std::vector<int> roles;
  tree.assignRoles(params, roles, 5);
  EXPECT_EQ(roles, (std::vector<int>{RoleProfile, RoleNodes, RoleEnd, RoleOther, RoleOther}));
  // The defaults alone make a tree with ten branches.
  params.profileNode = nullptr;
  PatchRecorder stream;
  PlacementList placements;
  EXPECT_EQ(tree.evaluate(params, stream, RoleNodes, placements, 1.0), RoleNodes);
  EXPECT_EQ(placements.at(0).placements.size(), 10u);
}

TEST(ClassicTree, extremeValuesFromAFileStayBounded) {
  const double nan = std::nan("");
  for (double segments : {0.0, -5.0, nan, 1e12}) {
    TreeFixture f;
    CapturingMessageHandler messages;
    f.params.setDouble(IdTreeSegments, segments);
    f.evaluate();
    EXPECT_EQ(f.group(RoleNodes)->placements.size(), 3u) << segments;
    if (segments > 1e6) {
      EXPECT_FALSE(messages.warnings.empty());
    }
  }
  for (double branchNum : {-3.0, nan, 1e15}) {
    TreeFixture f;
    CapturingMessageHandler messages;
    f.params.setDouble(IdTreeBranchNum, branchNum);
    f.params.profileNode = nullptr;
    f.evaluate(RoleNodes);
    EXPECT_LE(f.placements.size(), 1u);
  }
  TreeFixture f;
  f.params.setDouble(IdTreeLength, -2.0);
  f.params.setCurve(IdTreeDeviate, constant(nan));
  f.params.setCurve(IdTreeKruschtl, constant(nan));
  f.params.carriedDensity = 0.0;
  f.params.setDouble(IdUnit, 0.0);
  CapturingMessageHandler messages;
  f.evaluate();
  EXPECT_FALSE(f.placements.empty());
}

TEST(ClassicTree, pruneSolidEndsTheTrunkAtTheFirstFrameOutside) {
  Node prune;
  prune.setSimple(new ClassicSimple());
  Node* ball = new Node();
  ball->setSimple(new Sphere());
  ball->parameters().setDouble(IdSphereRadius, 1.5);
  prune.addChild(ball, "");
  TreeFixture f;
  f.params.clipNode = &prune;
  f.evaluate(RoleNodes);
  // Rings up to z 1.5 lie inside; the ring at 2.25 is the first outside and the last kept.
  const auto& patch = f.stream.patches.at(0);
  ASSERT_EQ(patch.countV, 6);
  EXPECT_NEAR(patch.at(0, 5).z, 2.25, 1e-9);
  EXPECT_EQ(f.group(RoleNodes)->placements.size(), 2u);
}
