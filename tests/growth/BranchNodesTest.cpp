// Branch nodes: where the distribution curve puts them, how angle, flap and screw turn them, and
// what they carry.
#include <gtest/gtest.h>

#include <cmath>

#include "core/ChildRole.h"
#include "curves/MersenneTwister.h"
#include "growth/Branch.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/GrowthScene.h"

using mv::Branch;
using mv::CurveParam;
using mv::Placement;
using mv::Vector3;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kWithNodes = 3;  // profile, path, nodes

CurveParam linear(double first, double last) { return CurveParam(-10, 10, first, last, "id"); }

// A branch along z from 0 to 10, points every 1, with a node count and a distribution.
struct NodeScene : NodeHolder<mv::Branch>, GrowthScene {
  explicit NodeScene(double nodes, const CurveParam& distribution = linear(1, 1))
      : GrowthScene(node) {
    makeLine(path, 11, {0, 0, 0}, {0, 0, 10});
    params.setDouble(Branch::nodeNumber, nodes);
    params.setCurve(Branch::nodeDistribution, distribution);
  }
};

std::vector<double> positions(const std::vector<Placement>& nodes) {
  std::vector<double> result;
  for (const Placement& node : nodes) result.push_back(node.position);
  return result;
}

void expectPositions(const std::vector<Placement>& nodes, const std::vector<double>& expected) {
  ASSERT_EQ(nodes.size(), expected.size());
  for (size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_NEAR(nodes[i].position, expected[i], 1e-12) << "node " << i;
    EXPECT_NEAR(nodes[i].matrix.position().z, 10.0 * expected[i], 1e-9) << "node " << i;
  }
}

}  // namespace

TEST(BranchNodes, constantDistributionSpacesNodesEvenlyWithNoneAtTheEnds) {
  NodeScene scene(4);
  const GrowthRun run = scene.run(kWithNodes);
  EXPECT_EQ(run.placed, mv::RoleProfile | mv::RoleNodes);
  const auto& nodes = run.only(mv::RoleNodes);
  expectPositions(nodes, {0.2, 0.4, 0.6, 0.8});
  for (size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_EQ(nodes[i].index, static_cast<int>(i));
    EXPECT_EQ(nodes[i].count, 4);
    EXPECT_TRUE(nodes[i].wantsData);
  }
}

TEST(BranchNodes, rampDistributionPutsNodeIAtTheRootOfItsShareOfTheArea) {
  // density x: the area up to x is x^2 / 2, a quarter of the total 1/2 per node and gap.
  NodeScene scene(3, linear(0, 1));
  expectPositions(scene.run(kWithNodes).only(mv::RoleNodes),
                  {std::sqrt(0.25), std::sqrt(0.5), std::sqrt(0.75)});
}

TEST(BranchNodes, fractionalNumberChangesTheStepNotTheCount) {
  NodeScene scene(10.5);
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 10u);
  EXPECT_EQ(nodes[0].count, 10);
  EXPECT_NEAR(nodes[0].position, 1.0 / 11.5, 1e-12);
  EXPECT_NEAR(nodes[9].position, 10.0 / 11.5, 1e-12);
}

TEST(BranchNodes, defaultDistributionFollowsItsCornerPolyline) {
  // Corners (0, 0), (0.5, 0.5), (1, 0.2): total 0.3, and below x 0.5 the area is x^2 / 2.
  Branch branch;
  GrowthScene scene(branch);
  makeLine(scene.path, 11, {0, 0, 0}, {0, 0, 10});
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 10u);
  const double step = 0.3 / 11.0;
  for (int i = 0; i < 4; ++i) EXPECT_NEAR(nodes[i].position, std::sqrt(2 * (i + 1) * step), 1e-12);
  EXPECT_GT(nodes[9].position, 0.5);
  EXPECT_LT(nodes[9].position, 1.0);
}

TEST(BranchNodes, noNodeGroupForZeroNegativeOrFlatCounts) {
  CapturingMessageHandler capture;
  for (double number : {0.0, -3.0, std::nan("")}) {
    NodeScene scene(number);
    const GrowthRun run = scene.run(kWithNodes);
    EXPECT_TRUE(run.groups(mv::RoleNodes).empty()) << number;
    EXPECT_EQ(run.groups(mv::RoleProfile).size(), 1u) << number;  // the rest stands
  }
  NodeScene flat(5, linear(0, 0));  // integral 0: no nodes and no message
  const GrowthRun run = flat.run(kWithNodes);
  EXPECT_TRUE(run.groups(mv::RoleNodes).empty());
  EXPECT_EQ(run.placed, mv::RoleProfile);
  EXPECT_TRUE(capture.errors.empty());
}

TEST(BranchNodes, growthDropsNodesBeyondTheGrownEndWithoutChangingTheStep) {
  NodeScene grown(4);
  grown.params.setDouble(Branch::pathGrowth, 0.5);
  expectPositions(grown.run(kWithNodes).only(mv::RoleNodes), {0.2, 0.4});

  NodeScene inherited(4);  // carried growth from above shortens the same way
  inherited.params.carriedGrowth = 0.5;
  const auto& nodes = inherited.run(kWithNodes).only(mv::RoleNodes);
  expectPositions(nodes, {0.2, 0.4});
  EXPECT_EQ(nodes[0].count, 4);

  inherited.params.setBool(Branch::pathGrowthInherited, false);
  EXPECT_EQ(positions(inherited.run(kWithNodes).only(mv::RoleNodes)).size(), 4u);
}

TEST(BranchNodes, carryGrowthThicknessAndDensityFromTheirCurves) {
  NodeScene scene(1);  // one node at 0.5, growth 0.8 so that the curves span 0 to 0.8
  scene.params.setDouble(Branch::pathGrowth, 0.8);
  scene.params.carriedThickness = 2.0;
  scene.params.setCurve(Branch::thickness, linear(1, 0.5));
  scene.params.setCurve(Branch::nodeGrowth, linear(1, 0));
  scene.params.setCurve(Branch::nodeDensity, linear(0, 4));
  scene.params.setCurve(Branch::nodeScale, linear(1, 3));
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 1u);
  const double u = 0.5 / 0.8;
  EXPECT_NEAR(nodes[0].carriedThickness, (1 - 0.5 * u) * 2.0, 1e-12);
  EXPECT_NEAR(nodes[0].carriedGrowth, (1 - u) * 0.8, 1e-12);
  EXPECT_NEAR(nodes[0].carriedDensity, 4 * 0.5, 1e-12);  // density reads the plain position
  EXPECT_NEAR(nodes[0].matrix.row(2).length(), 1 + 2 * u, 1e-12);
}

TEST(BranchNodes, uncurvedNodesCarryTheInheritedValues) {
  NodeScene scene(2);
  scene.params.carriedGrowth = 0.9;
  scene.params.carriedThickness = 0.7;
  scene.params.carriedDensity = 1.5;  // also multiplies the count: 3 nodes
  scene.params.setBool(Branch::nodeGrowthCurved, false);
  scene.params.setBool(Branch::nodeThicknessCurved, false);
  scene.params.setBool(Branch::nodeDensityCurved, false);
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 3u);
  for (const Placement& node : nodes) {
    EXPECT_EQ(node.carriedGrowth, 0.9);
    EXPECT_EQ(node.carriedThickness, 0.7);
    EXPECT_EQ(node.carriedDensity, 1.5);
  }
}

TEST(BranchNodes, screwCarriesSuccessiveNodesRoundTheTangent) {
  // Angle pi/2 and flap 0 lay a node's own z axis flat, pointing at (sin s, cos s, 0), where s
  // is pi plus the screw summed over the nodes so far.
  NodeScene scene(5);
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 5u);
  double screw = kPi;
  for (const Placement& node : nodes) {
    screw += Branch::kGoldenScrew;
    expectNear(node.matrix.row(2), {std::sin(screw), std::cos(screw), 0}, 1e-12);
    expectNear(node.matrix.row(0), {std::cos(screw), -std::sin(screw), 0}, 1e-12);
    expectOrthonormalFrame(node.matrix);
  }
}

TEST(BranchNodes, angleTiltsAndFlapTurnsAboutTheNodesOwnAxis) {
  NodeScene scene(1);
  scene.params.setCurve(Branch::nodeAngle, linear(kPi / 6, kPi / 6));
  scene.params.setCurve(Branch::nodeFlap, linear(kPi / 2, kPi / 2));
  scene.params.setCurve(Branch::nodeScrew, linear(0, 0));  // the screw stays at pi
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 1u);
  // z axis: tilted 30 degrees off the tangent; the half turn of the screw leans it toward -y.
  expectNear(nodes[0].matrix.row(2), {0, -std::sin(kPi / 6), std::cos(kPi / 6)}, 1e-12);
  // flap turns the x axis a quarter about the node's own z axis, into the plane of the tilt.
  expectNear(nodes[0].matrix.row(0), {0, std::cos(kPi / 6), std::sin(kPi / 6)}, 1e-12);
}

TEST(BranchNodes, whorlRepeatsEachNodeEvenlyRoundWithTheSameIndex) {
  NodeScene scene(2);
  scene.params.setInt(Branch::nodeWhorl, 3);
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 6u);
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(nodes[i].index, i / 3);
    EXPECT_EQ(nodes[i].count, 2);
  }
  for (int k = 1; k < 3; ++k) {
    EXPECT_NEAR(nodes[0].matrix.row(2).dot(nodes[k].matrix.row(2)), std::cos(2 * kPi / 3), 1e-12);
  }
}

TEST(BranchNodes, mirroredPairsDoubleIndexAndCount) {
  NodeScene scene(2);
  ASSERT_TRUE(Branch::applyNodeArrangement(scene.params, 5));  // flap pi, screw pi, mode 1
  const auto& nodes = scene.run(kWithNodes).only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 4u);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(nodes[i].index, i);
    EXPECT_EQ(nodes[i].count, 4);
  }
  // The mirror image stands opposite, its handedness flipped.
  expectNear(nodes[1].matrix.row(2), -nodes[0].matrix.row(2), 1e-12);
  const Vector3 x = nodes[1].matrix.row(0), y = nodes[1].matrix.row(1);
  EXPECT_NEAR(x.cross(y).dot(nodes[1].matrix.row(2)), -1.0, 1e-12);
}

TEST(BranchNodes, arrangementPresetsSetFlapScrewWhorlAndMode) {
  Branch branch;
  GrowthScene scene(branch);
  scene.params.setInt(Branch::nodeWhorl, 4);
  const double flap[] = {kPi, kPi / 2, kPi, kPi / 2, kPi, kPi / 2};
  const double screw[] = {Branch::kGoldenScrew, Branch::kGoldenScrew, kPi, kPi, kPi, kPi};
  for (int preset = 1; preset <= 6; ++preset) {
    ASSERT_TRUE(Branch::applyNodeArrangement(scene.params, preset));
    EXPECT_EQ(scene.params.getCurve(Branch::nodeFlap)->evaluate(0.3), flap[preset - 1]);
    EXPECT_EQ(scene.params.getCurve(Branch::nodeScrew)->evaluate(0.7), screw[preset - 1]);
    EXPECT_EQ(scene.params.getInt(Branch::nodeWhorl), 1);
    EXPECT_EQ(scene.params.getInt(Branch::nodeMode), preset >= 5 ? 1 : 0);
  }
  EXPECT_FALSE(Branch::applyNodeArrangement(scene.params, 7));
}

TEST(BranchNodes, curvesAreReadInTheirFixedOrder) {
  // Every curve draws from the shared generator, so what each node got tells the order of reads:
  // per node scale, thickness, growth, density; then per node screw, angle, flap.
  NodeScene scene(2);
  for (int id : {Branch::nodeScale, Branch::thickness, Branch::nodeGrowth, Branch::nodeDensity,
                 Branch::nodeScrew, Branch::nodeAngle, Branch::nodeFlap}) {
    CurveParam curve = linear(0, 0);
    ASSERT_TRUE(curve.setExpression("rnd(1)"));
    scene.params.setCurve(id, curve);
  }
  mt::MersenneTwister::shared().seed(99);
  mv::PlacementList list;
  ASSERT_EQ(scene.node.computePlacements(scene.params, mv::RoleNodes, list, 1.0), mv::RoleNodes);
  mt::MersenneTwister replay(99);
  std::vector<double> draws;
  for (int i = 0; i < 14; ++i) draws.push_back(2.0 * replay.next() - 1.0);
  ASSERT_EQ(list.size(), 1u);
  const auto& nodes = list[0].placements;
  ASSERT_EQ(nodes.size(), 2u);
  double screw = kPi;
  for (int k = 0; k < 2; ++k) {
    const double* read = &draws[4 * k];
    EXPECT_EQ(nodes[k].carriedThickness, read[1]);
    EXPECT_EQ(nodes[k].carriedGrowth, read[2]);
    EXPECT_EQ(nodes[k].carriedDensity, read[3]);
    const double* turn = &draws[8 + 3 * k];
    screw += turn[0];
    const double a = -turn[1], s = read[0];
    expectNear(
        nodes[k].matrix.row(2),
        Vector3(-std::sin(a) * std::sin(screw), -std::sin(a) * std::cos(screw), std::cos(a)) * s,
        1e-12);
  }
}
