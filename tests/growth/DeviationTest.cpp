#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/PolylineSpline.h"
#include "growth/Branch.h"
#include "growth/Deviation.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/GrowthScene.h"
#include "support/SplineBuilders.h"

namespace {

using mv::Deviation;

// A Deviation under a Branch whose values arrive through the read-through ids: nodeNumber
// nodes, an even distribution, a constant screw.
struct DeviationCase {
  explicit DeviationCase(double nodeNumber, double screw = 0.0, double angle = M_PI / 4) {
    deviation.initParameters(params, 100.0);
    params.setDouble(Deviation::ownerNodeNumber, nodeNumber);
    params.setCurve(Deviation::ownerNodeDistribution, mv::CurveParam(0, 1, 1.0, 1.0, "id"));
    params.setCurve(Deviation::ownerNodeScrew, mv::CurveParam(0, 7, screw, screw, "id"));
    params.setCurve(Deviation::deviationAngle, mv::CurveParam(0, 4, angle, angle, "id"));
  }
  bool deform(mv::Spline& spline) { return deviation.deformSpline(params, spline, mv::Matrix4()); }

  Deviation deviation;
  mv::ParameterSetData params;
};

// count points up the z axis from the origin to (0, 0, 1), t = i / (count - 1).
mv::PolylineSpline stem(int count) {
  mv::PolylineSpline spline;
  appendSegment(spline, linePoints(count, {0, 0, 0}, {0, 0, 1}));
  return spline;
}

void expectUnchanged(const mv::SplineData& spline, const mv::SplineData& original,
                     double tolerance = 0.0) {
  ASSERT_EQ(spline.points.size(), original.points.size());
  for (size_t i = 0; i < spline.points.size(); ++i) {
    expectNear(spline.points[i].position, original.points[i].position, tolerance);
    EXPECT_EQ(spline.points[i].t, original.points[i].t);
  }
}

}  // namespace

TEST(Deviation, kinksOnlyAtTheOwnersNodePosition) {
  // One node of an even distribution stands at the middle of the path.
  DeviationCase c(1.0);
  mv::PolylineSpline path = stem(11);
  ASSERT_TRUE(c.deform(path));
  for (int i = 0; i <= 5; ++i) expectNear(path.points[i].position, {0, 0, i / 10.0}, 1e-12);
  for (int i = 6; i <= 10; ++i) {
    const double d = i / 10.0 - 0.5;  // distance beyond the node, now turned by pi / 4
    expectNear(path.points[i].position, {0, d * std::sin(M_PI / 4), 0.5 + d * std::cos(M_PI / 4)},
               1e-12);
    EXPECT_DOUBLE_EQ(path.points[i].t, i / 10.0);
  }
}

TEST(Deviation, kinksWhereTheOwningBranchPlacesItsNodes) {
  // The Branch's own node pass over its default, uneven distribution gives the node positions.
  mv::Branch branch;
  GrowthScene scene(branch);
  makeLine(scene.path, 201, {0, 0, 0}, {0, 0, 1});
  scene.profile.makeCircle(0.1, 8);
  scene.params.setDouble(mv::Branch::nodeNumber, 3);
  std::vector<double> nodes;
  for (const mv::Placement& node : scene.run().only(mv::RoleNodes)) nodes.push_back(node.position);
  ASSERT_EQ(nodes.size(), 3u);

  DeviationCase c(3.0);
  c.params.setCurve(Deviation::ownerNodeDistribution,
                    *scene.params.getCurve(mv::Branch::nodeDistribution));
  mv::PolylineSpline path = stem(201);
  ASSERT_TRUE(c.deform(path));
  // Screw 0 keeps every kink in one plane: past k nodes the path heads k * pi / 4 away from z;
  // pieces that hold a node are the kinks themselves.
  for (int i = 1; i <= 200; ++i) {
    const double t0 = path.points[i - 1].t, t1 = path.points[i].t;
    const int before = static_cast<int>(
        std::count_if(nodes.begin(), nodes.end(), [t0](double x) { return x <= t0; }));
    const int after = static_cast<int>(
        std::count_if(nodes.begin(), nodes.end(), [t1](double x) { return x <= t1; }));
    if (before != after) continue;
    const mv::Vector3 piece = path.points[i].position - path.points[i - 1].position;
    EXPECT_NEAR(std::atan2(piece.y, piece.z), before * M_PI / 4, 1e-9) << i;
    EXPECT_NEAR(piece.length(), 1 / 200.0, 1e-12);
  }
}

TEST(Deviation, screwOfPiZigzagsInOnePlane) {
  // Two nodes at 1/3 and 2/3; each kink is turned half round, so the first goes toward -y and
  // the second turns back: the path ends heading up again.
  DeviationCase c(2.0, M_PI);
  mv::PolylineSpline path = stem(31);
  ASSERT_TRUE(c.deform(path));
  const double a = M_PI / 4, third = 1.0 / 3;
  for (int i = 0; i <= 30; ++i) EXPECT_NEAR(path.points[i].position.x, 0.0, 1e-12);
  const mv::Vector3 secondNode = {0, -third * std::sin(a), third + third * std::cos(a)};
  expectNear(path.points[20].position, secondNode, 1e-12);
  expectNear(path.points[30].position, secondNode + mv::Vector3(0, 0, third), 1e-12);
  expectNear(path.points[25].position - path.points[15].position,
             mv::Vector3(0, 0, 5 / 30.0) + (secondNode - mv::Vector3(0, 0, third)) / 2.0, 1e-12);
}

TEST(Deviation, defaultScrewSpiralsTheKinksRoundTheStem) {
  DeviationCase c(5.0, 3.883221519818898);
  mv::PolylineSpline path = stem(61);
  const mv::PolylineSpline original = path;
  ASSERT_TRUE(c.deform(path));
  // Kinks are rigid: every piece keeps its length; a spiral leaves the plane of any two kinks.
  for (int i = 0; i < 60; ++i) {
    EXPECT_NEAR((path.points[i + 1].position - path.points[i].position).length(), 1 / 60.0, 1e-12);
  }
  EXPECT_GT(std::fabs(path.points.back().position.x), 0.05);
  EXPECT_GT(std::fabs(path.points.back().position.y), 0.05);
}

TEST(Deviation, segmentsAreKinkedEachByItself) {
  DeviationCase c(1.0);
  mv::PolylineSpline path;
  appendSegment(path, linePoints(11, {0, 0, 0}, {0, 0, 1}));
  appendSegment(path, linePoints(11, {5, 0, 0}, {5, 0, 1}));
  ASSERT_TRUE(c.deform(path));
  for (int i = 0; i <= 10; ++i) {
    expectNear(path.points[11 + i].position - mv::Vector3(5, 0, 0), path.points[i].position, 1e-12);
  }
  EXPECT_GT(path.points[10].position.y, 0.3);
}

TEST(Deviation, withoutKinksOrNodesThePathStays) {
  const mv::PolylineSpline original = stem(11);
  DeviationCase straight(3.0, 0.0, 0.0);
  mv::PolylineSpline path = original;
  ASSERT_TRUE(straight.deform(path));
  expectUnchanged(path, original, 1e-12);

  for (double number : {0.0, -4.0, std::nan("")}) {
    DeviationCase none(number);
    path = original;
    ASSERT_TRUE(none.deform(path));
    expectUnchanged(path, original);
  }
  DeviationCase flat(2.0);  // a distribution of no area places no node
  flat.params.setCurve(Deviation::ownerNodeDistribution, mv::CurveParam());
  path = original;
  ASSERT_TRUE(flat.deform(path));
  expectUnchanged(path, original);
}

TEST(Deviation, withoutAnOwningBranchNothingHappensSilently) {
  CapturingMessageHandler messages;
  Deviation deviation;
  mv::ParameterSetData params;
  deviation.initParameters(params, 100.0);  // no read-through values
  const mv::PolylineSpline original = stem(11);
  mv::PolylineSpline path = original;
  EXPECT_TRUE(deviation.deformSpline(params, path, mv::Matrix4()));
  expectUnchanged(path, original);

  DeviationCase noScrew(2.0);
  noScrew.params.curves.erase(Deviation::ownerNodeScrew);
  EXPECT_TRUE(noScrew.deform(path));
  expectUnchanged(path, original);
  EXPECT_TRUE(messages.errors.empty());

  // A single point, an empty path, a wild node count.
  DeviationCase c(1.0);
  mv::PolylineSpline lone;
  appendSegment(lone, {{1, 2, 3}});
  EXPECT_TRUE(c.deform(lone));
  expectNear(lone.points[0].position, {1, 2, 3});
  mv::PolylineSpline empty;
  EXPECT_TRUE(c.deform(empty));
  DeviationCase wild(1e15);
  EXPECT_TRUE(wild.deform(path));
  expectUnchanged(path, original);
  EXPECT_EQ(messages.errors.size(), 1u);
}
