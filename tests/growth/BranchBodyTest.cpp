// Branch body: the rings along the path, the swept tube with its caps and texture, the end
// element, growth and clipping, and one group per segment.
#include <gtest/gtest.h>

#include <cmath>

#include "core/BaseNode.h"
#include "core/ChildRole.h"
#include "growth/Branch.h"
#include "support/GeometryExpectations.h"
#include "support/GrowthScene.h"

using mv::Branch;
using mv::CurveParam;
using mv::Placement;
using mv::Vector3;

namespace {

constexpr int kAllRoles = 4;  // profile, path, nodes, end

CurveParam linear(double first, double last) { return CurveParam(-10, 10, first, last, "id"); }

// A tube of an eight-point unit circle along z from 0 to 4, with no nodes.
struct TubeScene : NodeHolder<mv::Branch>, GrowthScene {
  TubeScene() : GrowthScene(node) {
    profile.makeCircle(1.0, 8);
    makeLine(path, 5, {0, 0, 0}, {0, 0, 4});
    params.setDouble(Branch::nodeNumber, 0.0);
    params.setCurve(Branch::thickness, linear(1, 0.5));
  }
};

double radius(const Vector3& p) { return std::hypot(p.x, p.y); }

// A plane z = height that the clip test hits.
class ClipPlane : public mv::BaseNode {
 public:
  explicit ClipPlane(double height) : height_(height) {}
  std::string& name(std::string& out) override { return out = "Clip"; }
  mv::Matrix4& globalMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  mv::Matrix4& localMatrix(mv::Matrix4& out) override { return out = mv::Matrix4(); }
  double rayDistance(const Vector3& origin, const Vector3& direction, bool limit) override {
    if (direction.z == 0.0) return -1.0;
    const double along = (height_ - origin.z) / direction.z;
    if (along < 0.0 || (limit && along > 1.0)) return -1.0;
    return along * direction.length();
  }

 private:
  double height_;
};

}  // namespace

TEST(BranchBody, ringsSitAtEveryPathPointScaledByThickness) {
  TubeScene scene;
  scene.params.carriedThickness = 2.0;
  const GrowthRun run = scene.run(kAllRoles);
  EXPECT_EQ(run.placed, mv::RoleProfile | mv::RoleEnd);
  const auto& rings = run.only(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 5u);
  for (int i = 0; i < 5; ++i) {
    const double t = i / 4.0;
    EXPECT_EQ(rings[i].position, t);
    EXPECT_EQ(rings[i].index, i);
    EXPECT_EQ(rings[i].count, 5);
    expectNear(rings[i].matrix.position(), {0, 0, 4 * t});
    EXPECT_NEAR(rings[i].matrix.row(0).length(), 2.0 * (1 - 0.5 * t), 1e-12);
  }
}

TEST(BranchBody, tubeWeldsTheClosedProfileAndTakesRadiiFromThickness) {
  TubeScene scene;
  const GrowthRun run = scene.run(kAllRoles);
  ASSERT_EQ(run.mesh.points.size(), 8u * 5u);  // the repeated first column is welded away
  EXPECT_EQ(run.mesh.polygons.size(), 8u * 4u);
  for (const Vector3& p : run.mesh.points) {
    EXPECT_NEAR(radius(p), 1 - 0.5 * p.z / 4, 1e-12);
    EXPECT_NEAR(p.z, std::round(p.z), 1e-12);
  }
  EXPECT_TRUE(run.mesh.selections.empty());
}

TEST(BranchBody, texturesRunAlongTheProfileAndThePath) {
  TubeScene scene;
  scene.profile = mv::PolylineSpline();
  makeLine(scene.profile, 3, {-1, 0, 0}, {1, 0, 0});  // open: columns 0, 1/2, 1
  const GrowthRun run = scene.run(kAllRoles);
  ASSERT_EQ(run.mesh.points.size(), 3u * 5u);
  ASSERT_EQ(run.mesh.texturePolygons.size(), 2u * 4u);
  const mv::TexturePolygon& first = run.mesh.texturePolygons[0];  // column 0, row 0
  expectNear(first.d, {0, 0, 0});
  expectNear(first.c, {0.5, 0, 0});
  expectNear(first.b, {0.5, 0.25, 0});
  expectNear(first.a, {0, 0.25, 0});
  expectNear(run.mesh.texturePolygons[7].b, {1, 1, 0});
}

TEST(BranchBody, capsCloseEitherEndUnlessTheTubeTapersToNothing) {
  TubeScene scene;
  scene.params.setBool(Branch::capStart, true);
  scene.params.setBool(Branch::capEnd, true);
  GrowthRun run = scene.run(kAllRoles);
  ASSERT_EQ(run.mesh.selections.count("C1"), 1u);
  ASSERT_EQ(run.mesh.selections.count("C2"), 1u);
  EXPECT_EQ(run.mesh.selections["C1"].size(), 6u);  // an outline of 8 makes 6 triangles
  EXPECT_EQ(run.mesh.polygons.size(), 32u + 12u);
  for (uint32_t polygon : run.mesh.selections["C2"]) {
    const Vector3 corner = run.mesh.points[run.mesh.polygons[polygon].a];
    EXPECT_NEAR(corner.z, 4.0, 1e-12);
    EXPECT_NEAR(radius(corner), 0.5, 1e-12);
  }

  Branch branch;  // the default thickness falls to 0: the end gets no cap
  GrowthScene tapered(branch);
  tapered.profile.makeCircle(1.0, 8);
  makeLine(tapered.path, 5, {0, 0, 0}, {0, 0, 4});
  tapered.params.setBool(Branch::capStart, true);
  tapered.params.setBool(Branch::capEnd, true);
  run = tapered.run(kAllRoles);
  EXPECT_EQ(run.mesh.selections.count("C1"), 1u);
  EXPECT_EQ(run.mesh.selections.count("C2"), 0u);
}

TEST(BranchBody, growthEndsTheRingsWithABlendAtTheGrownEnd) {
  TubeScene scene;
  scene.params.setDouble(Branch::pathGrowth, 0.6);  // between the points at 0.5 and 0.75
  const GrowthRun run = scene.run(kAllRoles);
  const auto& rings = run.only(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 4u);
  EXPECT_NEAR(rings[3].position, 0.6, 1e-12);
  expectNear(rings[3].matrix.position(), {0, 0, 2.4}, 1e-12);
  // The curves span the grown length: the last ring takes the thickness curve's end.
  EXPECT_NEAR(rings[3].matrix.row(0).length(), 0.5, 1e-12);
  EXPECT_FALSE(run.groups(mv::RoleProfile)[0]->closed);
}

TEST(BranchBody, endElementStandsAtTheGrownEndAndCarriesTheCurvesEnds) {
  TubeScene scene;
  scene.path = mv::PolylineSpline();
  makeLine(scene.path, 3, {0, 0, 0}, {4, 0, 0});  // along x
  scene.params.setDouble(Branch::pathGrowth, 0.5);
  scene.params.carriedThickness = 2.0;
  scene.params.setCurve(Branch::nodeGrowth, linear(0.8, 0.4));
  scene.params.setCurve(Branch::nodeDensity, linear(1, 3));
  const auto& ends = scene.run(kAllRoles).only(mv::RoleEnd);
  ASSERT_EQ(ends.size(), 1u);
  const Placement& end = ends[0];
  expectNear(end.matrix.row(2), {1, 0, 0});
  expectNear(end.matrix.position(), {2, 0, 0});
  expectOrthonormalFrame(end.matrix);
  EXPECT_EQ(end.position, 0.5);
  EXPECT_EQ(end.index, 0);
  EXPECT_EQ(end.count, 1);
  EXPECT_NEAR(end.carriedThickness, 0.5 * 2.0, 1e-12);
  EXPECT_NEAR(end.carriedGrowth, 0.4 * 0.5, 1e-12);
  EXPECT_NEAR(end.carriedDensity, 3.0, 1e-12);
}

TEST(BranchBody, closedPathClosesItsRingsAndGetsNoEndElement) {
  TubeScene scene;
  scene.path = mv::PolylineSpline();
  appendSegment(scene.path, {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, -1, 0}}, true,
                {0, 0.25, 0.5, 0.75});
  scene.params.setBool(Branch::capStart, true);
  GrowthRun run = scene.run(kAllRoles);
  EXPECT_EQ(run.only(mv::RoleProfile).size(), 4u);
  EXPECT_TRUE(run.groups(mv::RoleProfile)[0]->closed);
  EXPECT_TRUE(run.only(mv::RoleEnd).empty());    // the group is there, empty
  EXPECT_EQ(run.mesh.polygons.size(), 8u * 4u);  // the first ring repeats as a fifth row
  EXPECT_TRUE(run.mesh.selections.empty());      // a closed tube takes no cap

  scene.params.setDouble(Branch::pathGrowth, 0.9);  // one step further, round to the start
  run = scene.run(kAllRoles);
  const auto& rings = run.only(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 5u);
  EXPECT_FALSE(run.groups(mv::RoleProfile)[0]->closed);
  EXPECT_NEAR(rings[4].position, 0.9, 1e-12);
  expectNear(rings[4].matrix.position(), Vector3(0, -1, 0) * 0.4 + Vector3(1, 0, 0) * 0.6, 1e-12);
}

TEST(BranchBody, everySegmentGrowsInTurnWithGroupsOfItsOwn) {
  TubeScene scene;
  scene.path = mv::PolylineSpline();
  for (int c = 0; c < 3; ++c) makeLine(scene.path, 3, {c * 5.0, 0, 0}, {c * 5.0, 0, 2});
  scene.params.setDouble(Branch::pathGrowth, 0.5);  // the first whole, the second half
  scene.params.setDouble(Branch::nodeNumber, 1.0);
  const GrowthRun run = scene.run(kAllRoles);
  const auto rings = run.groups(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 2u);
  EXPECT_EQ(rings[0]->placements.size(), 3u);
  ASSERT_EQ(rings[1]->placements.size(), 2u);
  EXPECT_EQ(rings[1]->placements[0].index, 3);      // counted across the whole spline
  EXPECT_EQ(run.groups(mv::RoleNodes).size(), 1u);  // the node lies past the second's half
  const auto ends = run.groups(mv::RoleEnd);
  ASSERT_EQ(ends.size(), 2u);
  EXPECT_EQ(ends[1]->placements[0].position, 0.5);
  EXPECT_EQ(ends[1]->placements[0].index, 1);
  EXPECT_EQ(ends[1]->placements[0].count, 3);
  expectNear(ends[1]->placements[0].matrix.position(), {5, 0, 1});
  EXPECT_EQ(run.mesh.polygons.size(), 8u * 2u + 8u * 1u);
}

TEST(BranchBody, clipObjectShortensRingsNodesAndTheCurvesSpan) {
  TubeScene scene;
  ClipPlane plane(2.2);  // cuts the piece from 2 to 3 at a fifth
  scene.params.clipNode = &plane;
  scene.params.setDouble(Branch::nodeNumber, 4.0);
  scene.params.setCurve(Branch::nodeDistribution, linear(1, 1));
  scene.params.setCurve(Branch::nodeScale, linear(1, 2));
  GrowthRun run = scene.run(kAllRoles);
  const auto& rings = run.only(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 4u);
  EXPECT_NEAR(rings[3].position, 0.55, 1e-12);
  const auto& nodes = run.only(mv::RoleNodes);
  ASSERT_EQ(nodes.size(), 2u);  // 0.2 and 0.4; 0.6 lies beyond the cut
  EXPECT_NEAR(nodes[1].matrix.row(0).length(), 1 + 0.4 / 0.55, 1e-12);
  expectNear(run.only(mv::RoleEnd)[0].matrix.position(), {0, 0, 2.2}, 1e-12);

  scene.params.setInt(Branch::curveMapping, 0);  // curves span the grown length instead
  run = scene.run(kAllRoles);
  EXPECT_NEAR(run.only(mv::RoleNodes)[1].matrix.row(0).length(), 1 + 0.4, 1e-12);
}

TEST(BranchBody, clipRightAtAPointEndsTheWalkThere) {
  TubeScene scene;
  ClipPlane plane(1.00005);  // within 0.0001 of the point at z 1
  scene.params.clipNode = &plane;
  const GrowthRun run = scene.run(kAllRoles);
  const auto& rings = run.only(mv::RoleProfile);
  ASSERT_EQ(rings.size(), 2u);
  EXPECT_EQ(rings[1].position, 0.25);
  EXPECT_EQ(run.only(mv::RoleEnd)[0].position, 1.0);  // the end keeps the grown part
  expectNear(run.only(mv::RoleEnd)[0].matrix.position(), {0, 0, 1});
}

TEST(BranchBody, profileWithoutGeometryIsInstancedAtTheRings) {
  TubeScene scene;
  scene.params.profileNode = nullptr;
  const GrowthRun run = scene.run(kAllRoles);
  EXPECT_FALSE(scene.node.hasGeometry(scene.params));
  EXPECT_EQ(run.only(mv::RoleProfile).size(), 5u);
  EXPECT_TRUE(run.mesh.points.empty());
}

TEST(BranchProtocol, rolesAndTheComputedThickness) {
  Branch branch;
  GrowthScene scene(branch);
  std::vector<int> roles;
  EXPECT_TRUE(branch.assignRoles(scene.params, roles, 6));
  EXPECT_EQ(roles, (std::vector<int>{1, 2, 4, 8, 16, 16}));
  EXPECT_TRUE(branch.hasGeometry(scene.params));
  EXPECT_EQ(branch.modifierKinds(), 0);
  // The thickness is a quarter cosine kept as five drawn points, limits 0.1 beyond its values.
  const CurveParam* thickness = scene.params.getCurve(Branch::thickness);
  ASSERT_NE(thickness, nullptr);
  ASSERT_EQ(thickness->getPointCount(), 5);
  for (int k = 0; k < 5; ++k) {
    EXPECT_NEAR(thickness->evaluate(k / 4.0), std::cos(k * 3.14159265358979323846 / 8), 1e-12);
  }
  EXPECT_NEAR(thickness->minimum(), -0.1, 1e-12);
  EXPECT_NEAR(thickness->maximum(), 1.1, 1e-12);
  scene.params.profileNode = nullptr;
  EXPECT_FALSE(branch.hasGeometry(scene.params));
}
