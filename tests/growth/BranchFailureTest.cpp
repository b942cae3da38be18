// Branch on missing parameters and bad input: the tagged messages, a 0 result, and no crash,
// hang or runaway allocation on degenerate paths, profiles, counts and curves.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/ChildRole.h"
#include "growth/Branch.h"
#include "support/CapturingMessageHandler.h"
#include "support/GrowthScene.h"

using mv::Branch;
using mv::Placement;

namespace {

constexpr int kAllRoles = 4;

struct DefaultScene : NodeHolder<mv::Branch>, GrowthScene {
  DefaultScene() : GrowthScene(node) {
    profile.makeCircle(1.0, 6);
    makeLine(path, 4, {0, 0, 0}, {0, 0, 3});
  }
};

bool allFinite(const GrowthRun& run) {
  for (const mv::PlacementGroup& group : run.placements) {
    for (const Placement& p : group.placements) {
      for (double entry : p.matrix.m) {
        if (!std::isfinite(entry)) return false;
      }
    }
  }
  for (const mv::Vector3& p : run.mesh.points) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return false;
  }
  return true;
}

}  // namespace

TEST(BranchFailure, missingParametersNameThemselvesInOrder) {
  const std::vector<std::pair<int, std::string>> cases = {
      {Branch::thickness, "Branch::thickness"},
      {Branch::nodeGrowth, "Branch::nodeGrowth"},
      {Branch::nodeDensity, "Branch::nodeDensity"},
      {Branch::nodeDistribution, "Branch::nodeDistribution,nodeScale,thickness"},
      {Branch::nodeScale, "Branch::nodeDistribution,nodeScale,thickness"},
  };
  for (const auto& [id, tag] : cases) {
    CapturingMessageHandler capture;
    DefaultScene scene;
    scene.params.curves.erase(id);
    const GrowthRun run = scene.run(kAllRoles);
    EXPECT_EQ(run.placed, 0) << tag;
    EXPECT_TRUE(run.placements.empty()) << tag;
    ASSERT_EQ(capture.errors.size(), 1u) << tag;
    EXPECT_EQ(capture.errors[0], "Parameter Retrieval failed!" + tag);
  }
  CapturingMessageHandler capture;
  DefaultScene scene;
  scene.params.pathNode = nullptr;
  scene.params.curves.erase(Branch::thickness);  // the path is asked for first
  EXPECT_EQ(scene.run(kAllRoles).placed, 0);
  ASSERT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(capture.errors[0], "Parameter Retrieval failed!Branch::pathSpline");
}

TEST(BranchFailure, missingTurnCurveKeepsTheRingsButReturnsZero) {
  for (int id : {Branch::nodeAngle, Branch::nodeFlap, Branch::nodeScrew}) {
    CapturingMessageHandler capture;
    DefaultScene scene;
    scene.params.curves.erase(id);
    const GrowthRun run = scene.run(kAllRoles);
    EXPECT_EQ(run.placed, 0);
    ASSERT_EQ(run.placements.size(), 1u);  // the body pass came first
    EXPECT_EQ(run.placements[0].role, mv::RoleProfile);
    EXPECT_FALSE(run.mesh.polygons.empty());  // and its tube is written
    ASSERT_EQ(capture.errors.size(), 1u);
    EXPECT_EQ(capture.errors[0], "Parameter Retrieval failed!Branch::nodeAngle,nodeFlap,nodeScrew");
  }
}

TEST(BranchFailure, noGrowthNoSegmentsOrNoChildrenGiveNothing) {
  DefaultScene grown;
  grown.params.setDouble(Branch::pathGrowth, 0.0);
  EXPECT_EQ(grown.run(kAllRoles).placed, 0);
  EXPECT_TRUE(grown.run(kAllRoles).placements.empty());
  grown.params.setDouble(Branch::pathGrowth, std::nan(""));
  EXPECT_TRUE(grown.run(kAllRoles).placements.empty());

  DefaultScene empty;
  empty.path = mv::PolylineSpline();
  EXPECT_EQ(empty.run(kAllRoles).placed, 0);
  EXPECT_TRUE(empty.run(kAllRoles).mesh.points.empty());

  DefaultScene alone;
  const GrowthRun run = alone.run(0);
  EXPECT_TRUE(run.placements.empty());
  EXPECT_TRUE(run.mesh.points.empty());
}

TEST(BranchFailure, degeneratePathsAndProfilesStayFinite) {
  DefaultScene single;
  single.path = mv::PolylineSpline();
  appendSegment(single.path, {{0, 0, 0}});
  GrowthRun run = single.run(kAllRoles);
  EXPECT_TRUE(allFinite(run));
  EXPECT_TRUE(run.mesh.polygons.empty());  // one ring spans no face
  single.params.setBool(Branch::capStart, true);
  single.params.setBool(Branch::capEnd, true);
  run = single.run(kAllRoles);  // both caps stand at the one ring, back to back
  EXPECT_EQ(run.mesh.selections["C1"].size(), 4u);
  EXPECT_EQ(run.mesh.selections["C2"].size(), 4u);

  DefaultScene zero;
  zero.path = mv::PolylineSpline();
  appendSegment(zero.path, {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
  run = zero.run(kAllRoles);
  EXPECT_TRUE(allFinite(run));
  EXPECT_EQ(run.only(mv::RoleNodes).size(), 10u);

  DefaultScene hollow;  // a closed segment without points ahead of a real one
  hollow.path = mv::PolylineSpline();
  hollow.path.segments.push_back({0, true});
  makeLine(hollow.path, 3, {0, 0, 0}, {0, 0, 2});
  hollow.params.setDouble(Branch::pathGrowth, 0.4);  // it alone grows, and not to the end
  run = hollow.run(kAllRoles);
  EXPECT_TRUE(run.groups(mv::RoleProfile).empty());  // no ring borrowed from the next segment
  EXPECT_TRUE(allFinite(run));

  DefaultScene point;
  point.profile = mv::PolylineSpline();
  appendSegment(point.profile, {{1, 0, 0}});
  point.params.setBool(Branch::capStart, true);
  run = point.run(kAllRoles);
  EXPECT_TRUE(allFinite(run));
  EXPECT_TRUE(run.mesh.points.empty());
}

TEST(BranchFailure, hugeCountsAreRefusedAndNaNCurvesEndTheLoop) {
  for (double number : {1e12, std::numeric_limits<double>::infinity()}) {
    CapturingMessageHandler capture;
    DefaultScene scene;
    scene.params.setDouble(Branch::nodeNumber, number);
    EXPECT_EQ(scene.run(kAllRoles).placed, 0);
    EXPECT_EQ(capture.errors.size(), 1u);
  }
  CapturingMessageHandler capture;
  DefaultScene whorls;
  whorls.params.setInt(Branch::nodeWhorl, std::numeric_limits<int>::max());
  EXPECT_EQ(whorls.run(kAllRoles).placed, 0);
  EXPECT_EQ(capture.errors.size(), 1u);

  DefaultScene broken;  // every curve NaN: a bounded run, whatever it makes
  for (auto& [id, curve] : broken.params.curves) {
    ASSERT_TRUE(curve.setPointY(0, std::nan("")));
    ASSERT_TRUE(curve.setExpression("x/0"));
  }
  const GrowthRun run = broken.run(kAllRoles);
  for (const mv::PlacementGroup& group : run.placements) EXPECT_LE(group.placements.size(), 10u);
}
