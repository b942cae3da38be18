// The classic horn and leaf: the chain of turns and steps, the standard elements every few
// frames, a horn along a path, the leaf's outline, closed tip and tropism.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicLeaf.h"
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

// A straight chain up z: no turns, dense 1, moveScale 1, shape 0.5, no photo correction.
template <class Node>
struct ChainFixture {
  explicit ChainFixture(double segments, double length = 2.0) {
    node.initParameters(params, 1.0);
    params.setDouble(IdPhotoStrength, 0.0);
    params.setDouble(IdHornSegments, segments);
    params.setDouble(IdHornLength, length);
    params.setDouble(IdHornMoveScale, 1.0);
    params.setBool(IdHornTop, false);
    for (int id :
         {IdHornRotX, IdHornRotY, IdHornRotZ, IdHornTrX, IdHornTrY, IdHornScrew, IdHornFlap}) {
      params.setCurve(id, constant(0.0));
    }
    params.setCurve(IdHornDense, constant(1.0));
    params.setCurve(IdHornScale, constant(1.0));
    params.setCurve(IdHornShape, constant(0.5));
    params.profileNode = &profile;
  }
  int evaluate(int mask = RoleNodes | RoleEnd | RoleOther) {
    return node.evaluate(params, stream, mask, placements, 1.0);
  }
  const PlacementGroup* group(int role) const {
    for (const PlacementGroup& g : placements) {
      if (g.role == role) return &g;
    }
    return nullptr;
  }

  Node node;
  ParameterSetData params;
  ProfileNode profile = ProfileNode::line(1.0);
  PatchRecorder stream;
  PlacementList placements;
};

using HornFixture = ChainFixture<ClassicHorn>;
using LeafFixture = ChainFixture<ClassicLeaf>;

std::vector<TreeFrame> turningChain(double turn, double segments, double length) {
  const CurveParam zero = constant(0.0), one = constant(1.0), rot = constant(turn);
  return ClassicHorn::buildHornFrames({&rot, &zero, &zero, &zero, &zero, &one}, segments, length,
                                      1.0);
}

}  // namespace

TEST(ClassicHorn, straightChainRunsUpZInWholeSteps) {
  HornFixture f(4.0);
  f.evaluate();
  const auto& patch = f.stream.patches.at(0);
  ASSERT_EQ(patch.countV, 5);
  for (int v = 0; v < 5; ++v) {
    expectNear(patch.at(0, v), {-0.5, 0, 0.5 * v}, 1e-12);
    expectNear(patch.at(2, v), {0.5, 0, 0.5 * v}, 1e-12);
  }
  const Placement& top = f.group(RoleEnd)->placements.at(0);
  expectNear(top.matrix, Matrix4::translation({0, 0, 2}), 1e-12);
  EXPECT_EQ(top.position, 1.0);
  // 2.7 segments: frames at 0, 0.5, 1 two steps of 2 / 2.7 apart; the chain falls short.
  const auto frames = turningChain(0.0, 2.7, 2.0);
  ASSERT_EQ(frames.size(), 3u);
  EXPECT_EQ(frames[1].x, 0.5);
  expectNear(frames[2].matrix.position(), {0, 0, 4 / 2.7}, 1e-12);
}

TEST(ClassicHorn, constantTurnMakesAnArcOfTheExpectedRadius) {
  const double turn = 1.5, segments = 12, length = 3.0;
  const auto frames = turningChain(turn, segments, length);
  ASSERT_EQ(frames.size(), 13u);
  // Equal chords turning by equal angles lie on a circle through the origin in the y-z plane.
  const double step = length / segments, angle = turn * step;
  const double radius = step / (2 * std::sin(angle / 2));
  const Vector3 first = frames[1].matrix.position();
  // The first chord leaves at half a step's turn from z; the centre lies perpendicular to it.
  const Vector3 chord = first.normalized();
  const Vector3 toCentre = Vector3{0, chord.z, -chord.y} * (radius * std::cos(angle / 2));
  const Vector3 centre = first * 0.5 + toCentre;
  for (const TreeFrame& frame : frames) {
    const Vector3 p = frame.matrix.position();
    EXPECT_NEAR(p.x, 0.0, 1e-12);
    EXPECT_NEAR((p - centre).length(), radius, 1e-9);
    expectOrthonormalFrame(frame.matrix);
  }
  EXPECT_GT(first.y, 0.0);  // the turn about x leans the chain toward +y
}

TEST(ClassicHorn, standardElementsStandEveryStepsFrames) {
  HornFixture f(9.0);
  f.params.setCurve(IdHornSteps, CurveParam(1, 200, 3, 3, "id"));
  f.params.carriedGrowth = 0.7;
  f.params.carriedThickness = 0.4;
  f.evaluate(RoleEnd);
  const PlacementGroup* elements = f.group(RoleNodes);
  ASSERT_NE(elements, nullptr);  // written even when the mask lacks it
  ASSERT_EQ(elements->placements.size(), 3u);
  for (int k = 0; k < 3; ++k) {
    const Placement& p = elements->placements[k];
    const int frame = 2 + 3 * k;
    EXPECT_EQ(p.index, frame - 1);
    EXPECT_EQ(p.count, 8);
    EXPECT_NEAR(p.position, frame / 9.0, 1e-12);
    EXPECT_NEAR(p.carriedGrowth, 0.7, 1e-12);
    EXPECT_NEAR(p.carriedThickness, 0.4, 1e-12);
    // Turned a quarter about x: the element stands out sideways from the chain.
    expectNear(p.matrix.row(2), {0, 1, 0}, 1e-12);
    expectNear(p.matrix.position(), {0, 0, 2.0 * frame / 9.0}, 1e-12);
  }
  HornFixture two(1.0);
  two.evaluate();
  EXPECT_TRUE(two.group(RoleNodes)->placements.empty());
}

TEST(ClassicHorn, fewerThanOneSegmentLeavesOneFrameAndNoTube) {
  HornFixture f(0.5);
  EXPECT_EQ(f.evaluate(), RoleNodes | RoleEnd | RoleOther);
  EXPECT_TRUE(f.stream.patches.empty());
  EXPECT_TRUE(f.group(RoleNodes)->placements.empty());
  const Placement& top = f.group(RoleEnd)->placements.at(0);
  expectNear(top.matrix, Matrix4());
  EXPECT_EQ(top.position, 0.0);
  expectNear(f.group(RoleOther)->placements.at(0).matrix, Matrix4(), 1e-12);
}

TEST(ClassicHorn, pathHornFollowsItsPathWithoutTurning) {
  HornFixture f(4.0);
  f.node.path.keys = {{0.0, {0, 0, 0}}, {1.0, {4, 0, 0}}};
  f.params.setCurve(IdHornRotX, constant(1.0));  // not read along a path
  f.evaluate();
  const auto& patch = f.stream.patches.at(0);
  ASSERT_EQ(patch.countV, 4);  // the last frame lies before the end of the path
  for (int v = 0; v < 4; ++v) {
    const Vector3 centre = f.node.path.pointAt(v / 4.0);
    expectNear(patch.at(1, v), centre, 1e-12);
    expectNear(patch.at(2, v), centre + Vector3{0.5, 0, 0}, 1e-12);
  }
  expectNear(f.group(RoleEnd)->placements.at(0).matrix,
             Matrix4::translation(f.node.path.pointAt(0.75)), 1e-12);
}

TEST(ClassicHorn, missingCurveWritesNothing) {
  HornFixture f(4.0);
  f.params.curves.erase(IdHornSteps);
  EXPECT_EQ(f.evaluate(), 0);
  EXPECT_TRUE(f.placements.empty());
  EXPECT_TRUE(f.stream.patches.empty());
}

TEST(ClassicHorn, extremeSegmentCountsStayBounded) {
  for (double segments : {-3.0, std::nan(""), 1e12}) {
    CapturingMessageHandler messages;
    const auto frames = turningChain(0.3, segments, 1.0);
    EXPECT_LE(frames.size(), static_cast<size_t>(ClassicHorn::kMaxSegments) + 1);
    EXPECT_EQ(messages.warnings.size(), segments > 1e6 ? 1u : 0u);
  }
  EXPECT_TRUE(turningChain(0.3, -3.0, 1.0).empty());
}

TEST(ClassicLeaf, outlineFollowsTheShapeAndTheTipAlwaysCloses) {
  LeafFixture f(4.0, 1.0);
  f.params.setCurve(IdHornShape, CurveParam(0, 1, 1, 0.2, "id"));
  EXPECT_EQ(f.evaluate(), RoleEnd | RoleOther);
  ASSERT_EQ(f.stream.patches.size(), 1u);
  const auto& patch = f.stream.patches[0];
  EXPECT_EQ(patch.countU, 3);
  ASSERT_EQ(patch.countV, 5);
  for (int v = 0; v < 4; ++v) {
    const double half = 1.0 - 0.8 * v / 4.0;
    expectNear(patch.at(0, v), {-half, 0, v / 4.0}, 1e-12);
    expectNear(patch.at(2, v), {half, 0, v / 4.0}, 1e-12);
  }
  for (int u = 0; u < 3; ++u) expectNear(patch.at(u, 4), {0, 0, 1}, 1e-12);
  EXPECT_EQ(f.group(RoleNodes), nullptr);
  std::vector<int> roles;
  f.node.assignRoles(f.params, roles, 4);
  EXPECT_EQ(roles, (std::vector<int>{RoleProfile, RoleEnd, RoleOther, RoleOther}));
}

TEST(ClassicLeaf, gravitropismBendsTheLeafDown) {
  LeafFixture upright(8.0, 1.0), drooping(8.0, 1.0);
  for (LeafFixture* f : {&upright, &drooping}) f->params.setCurve(IdHornRotX, constant(1.0));
  drooping.params.setCurve(IdLeafGravitropism, constant(0.1));
  upright.evaluate(RoleEnd);
  drooping.evaluate(RoleEnd);
  const Matrix4 a = upright.group(RoleEnd)->placements.at(0).matrix;
  const Matrix4 b = drooping.group(RoleEnd)->placements.at(0).matrix;
  EXPECT_LT(b.position().z, a.position().z - 0.01);
  EXPECT_LT(b.row(2).z, a.row(2).z);
  expectOrthonormalFrame(b);
  LeafFixture missing(4.0);
  missing.params.curves.erase(IdLeafPhototropism);
  EXPECT_EQ(missing.evaluate(), 0);
  EXPECT_TRUE(missing.stream.patches.empty());
}
