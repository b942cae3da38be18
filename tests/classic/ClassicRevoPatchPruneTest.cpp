// Revo, hyperpatch and prune: a revolved stack against cylinders and frusta, the lattice at rest
// and with one control point moved by its Bernstein weight, and the roles of a prune.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/ClassicHyperpatch.h"
#include "classic/ClassicPrune.h"
#include "classic/ClassicRevo.h"
#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "support/GeometryExpectations.h"
#include "support/PatchRecorder.h"
#include "support/ProfileNode.h"

using namespace mv;

namespace {

struct RevoFixture {
  explicit RevoFixture(std::vector<Vector3> points) {
    node.initParameters(params, 1.0);
    node.points = std::move(points);
    params.profileNode = &profile;
  }
  int evaluate() { return node.evaluate(params, stream, RoleOther, placements, 1.0); }
  std::vector<Vector3> allPoints() const {
    std::vector<Vector3> out;
    for (const auto& patch : stream.patches)
      out.insert(out.end(), patch.points.begin(), patch.points.end());
    return out;
  }

  ClassicRevo node;
  ParameterSetData params;
  ProfileNode profile = ProfileNode::circle(2.0, 8);
  PatchRecorder stream;
  PlacementList placements;
};

double radial(const Vector3& p) { return std::hypot(p.x, p.y); }

// A grid of points through a box from (0, 0, 0) to (4, 2, 1).
MeshData boxGrid() {
  MeshData mesh;
  mesh.resize(27, 0);
  uint32_t i = 0;
  for (int c = 0; c < 3; ++c) {
    for (int b = 0; b < 3; ++b) {
      for (int a = 0; a < 3; ++a) mesh.setPoint(i++, {2.0 * a, 1.0 * b, 0.5 * c});
    }
  }
  return mesh;
}

std::vector<Vector3> pointsOf(const MeshData& mesh) {
  std::vector<Vector3> points(mesh.getPointCount());
  for (uint32_t i = 0; i < points.size(); ++i) mesh.getPoint(i, points[i]);
  return points;
}

}  // namespace

TEST(ClassicRevo, constantRadiusIsACylinder) {
  RevoFixture f({{1, 0, 0}, {1, 0, 2}, {1, 0, 5}});
  EXPECT_EQ(f.evaluate(), RoleOther);
  const auto points = f.allPoints();
  ASSERT_FALSE(points.empty());
  for (const Vector3& p : points) {
    EXPECT_NEAR(radial(p), 2.0, 1e-9);
    EXPECT_TRUE(std::abs(p.z) < 1e-9 || std::abs(p.z - 2) < 1e-9 || std::abs(p.z - 5) < 1e-9);
  }
}

TEST(ClassicRevo, twoPointsMakeAFrustumAndRadiiAreClampedToTheProfile) {
  RevoFixture frustum({{0.5, 0, 0}, {1, 0, 10}});
  frustum.evaluate();
  RevoFixture clamped({{-1, 0, 0}, {1.5, 0, 10}});
  clamped.evaluate();
  for (const auto* f : {&frustum, &clamped}) {
    const double bottom = f == &frustum ? 1.0 : 0.0;
    const auto points = f->allPoints();
    ASSERT_FALSE(points.empty());
    for (const Vector3& p : points) {
      EXPECT_NEAR(radial(p), p.z < 5 ? bottom : 2.0, 1e-9);
    }
  }
}

TEST(ClassicRevo, tooFewPointsOrNoProfileWriteNothingButPlaceTheOthers) {
  for (const auto& points : {std::vector<Vector3>{}, std::vector<Vector3>{{1, 0, 3}}}) {
    RevoFixture f(points);
    EXPECT_EQ(f.evaluate(), RoleOther);
    EXPECT_TRUE(f.stream.patches.empty());
  }
  RevoFixture bare({{1, 0, 0}, {1, 0, 1}});
  bare.params.profileNode = nullptr;
  EXPECT_EQ(bare.evaluate(), RoleOther);
  EXPECT_TRUE(bare.stream.patches.empty());
  bare.params.curves.erase(IdDisplace);
  EXPECT_EQ(bare.evaluate(), 0);
}

TEST(ClassicHyperpatch, latticeAtRestLeavesEveryPointInPlace) {
  ClassicHyperpatch patch;
  ParameterSetData params;
  EXPECT_EQ(patch.modifierKinds(), ModifierFinishMesh);
  for (int n = 2; n <= 5; ++n) {
    MeshData mesh = boxGrid();
    const auto before = pointsOf(mesh);
    patch.points = ClassicHyperpatch::restingLattice(n);
    ASSERT_TRUE(patch.finishMesh(params, mesh));
    const auto after = pointsOf(mesh);
    for (size_t i = 0; i < before.size(); ++i) expectNear(after[i], before[i], 1e-12);
  }
}

TEST(ClassicHyperpatch, aMovedControlPointMovesPointsByItsWeight) {
  ClassicHyperpatch patch;
  ParameterSetData params;
  const Vector3 shift(0.1, -0.2, 0.3);
  // The box (0..4, 0..2, 0..1) sits in a cube of side 4 round (2, 1, 0.5).
  auto unitCube = [](const Vector3& p) {
    return (p - Vector3(2, 1, 0.5)) * 0.25 + Vector3(0.5, 0.5, 0.5);
  };
  // Trilinear: the far corner (index 7) weighs x y z.
  patch.points = ClassicHyperpatch::restingLattice(2);
  patch.points[7] += shift;
  MeshData linear = boxGrid();
  ASSERT_TRUE(patch.finishMesh(params, linear));
  // Triquadratic: the middle point (1, 1, 1) weighs the product of 2 t (1 - t).
  patch.points = ClassicHyperpatch::restingLattice(3);
  patch.points[13] += shift;
  MeshData quadratic = boxGrid();
  ASSERT_TRUE(patch.finishMesh(params, quadratic));
  const auto before = pointsOf(boxGrid());
  const auto afterLinear = pointsOf(linear), afterQuadratic = pointsOf(quadratic);
  for (size_t i = 0; i < before.size(); ++i) {
    const Vector3 t = unitCube(before[i]);
    expectNear(afterLinear[i], before[i] + shift * (4.0 * t.x * t.y * t.z), 1e-12);
    const double w = 8.0 * t.x * (1 - t.x) * t.y * (1 - t.y) * t.z * (1 - t.z);
    expectNear(afterQuadratic[i], before[i] + shift * (4.0 * w), 1e-12);
  }
}

TEST(ClassicHyperpatch, wrongLatticesAndFlatOrEmptyMeshesLeaveTheMeshUntouched) {
  ClassicHyperpatch patch;
  ParameterSetData params;
  for (size_t count : {0u, 1u, 26u, 28u, 216u}) {
    EXPECT_EQ(ClassicHyperpatch::latticeSide(count), 0);
    patch.points.assign(count, {9, 9, 9});
    MeshData mesh = boxGrid();
    EXPECT_FALSE(patch.finishMesh(params, mesh));
    EXPECT_EQ(pointsOf(mesh), pointsOf(boxGrid()));
  }
  patch.points = ClassicHyperpatch::restingLattice(2);
  MeshData empty;
  EXPECT_FALSE(patch.finishMesh(params, empty));
  MeshData single;
  single.resize(1, 0);
  single.setPoint(0, {1, 2, 3});
  EXPECT_FALSE(patch.finishMesh(params, single));
}

TEST(ClassicPrune, onlyTheLastChildIsBuilt) {
  ClassicPrune prune;
  ParameterSetData params;
  for (int count : {0, 1, 3}) {
    std::vector<int> roles;
    EXPECT_TRUE(prune.assignRoles(params, roles, count));
    ASSERT_EQ(roles.size(), static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(roles[i], i + 1 == count ? RoleOther : RoleUnused);
  }
}
