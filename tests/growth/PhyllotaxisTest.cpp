// Phyllotaxis: equal-area spreading on a disc and a hemisphere, divergence, the fraction rules
// of the count, the level-of-detail reduction, and bad input.
#include <gtest/gtest.h>

#include <cmath>

#include "core/ChildRole.h"
#include "growth/Phyllotaxis.h"
#include "growth/PhyllotaxisIntegration.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/GrowthScene.h"

using mv::CurveParam;
using mv::Phyllotaxis;
using mv::Placement;
using mv::Vector3;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kWithElements = 2;  // profile, elements

CurveParam linear(double first, double last) { return CurveParam(-10, 10, first, last, "id"); }

// A flower head: the profile, radius in x and height in z, is the path child (1007).
struct HeadScene : NodeHolder<mv::Phyllotaxis>, GrowthScene {
  explicit HeadScene(double number) : GrowthScene(node) {
    params.pathNode = &profileNode;
    params.setDouble(Phyllotaxis::number, number);
  }
  void disc() { makeLine(profile, 101, {0, 0, 0}, {1, 0, 0}); }
  void hemisphere() {
    std::vector<Vector3> points;
    for (int i = 0; i <= 400; ++i) {
      const double theta = kPi / 2 * i / 400.0;
      points.push_back({std::sin(theta), 0, std::cos(theta)});
    }
    appendSegment(profile, points);
  }
};

double scaleOf(const Placement& p) { return p.matrix.row(0).length(); }

}  // namespace

TEST(Phyllotaxis, discElementsTakeEqualAreasAndTurnByTheDivergence) {
  HeadScene scene(11);
  scene.disc();
  const GrowthRun run = scene.run(kWithElements);
  EXPECT_EQ(run.placed, mv::RoleNodes);
  EXPECT_FALSE(run.groups(mv::RoleNodes)[0]->closed);
  const auto& elements = run.only(mv::RoleNodes);
  ASSERT_EQ(elements.size(), 11u);
  for (int k = 0; k < 11; ++k) {
    const double r = std::sqrt(k / 10.0);  // the disc up to r holds k tenths of the area
    const double d = k * Phyllotaxis::kGoldenDivergence;
    EXPECT_NEAR(elements[k].position, r, 1e-9) << k;
    expectNear(elements[k].matrix.position(), {r * std::sin(d), r * std::cos(d), 0}, 1e-9);
    EXPECT_EQ(elements[k].index, k);
    EXPECT_EQ(elements[k].count, 11);
    EXPECT_NEAR(scaleOf(elements[k]), 1.0, 1e-12);
    expectOrthonormalFrame(elements[k].matrix);
  }
}

TEST(Phyllotaxis, hemisphereElementsStandAtEvenlySpacedHeights) {
  // Equal area on a sphere means equal steps in height; measured in the profile's parameter,
  // element k has k / (n - 1) of the whole area before it.
  HeadScene scene(21);
  scene.hemisphere();
  const auto& elements = scene.run(kWithElements).only(mv::RoleNodes);
  ASSERT_EQ(elements.size(), 21u);
  mv::PhyllotaxisIntegration area(&scene.profile);
  const double total = area.integrate(0, 1);
  for (int k = 0; k < 21; ++k) {
    EXPECT_NEAR(area.integrate(0, elements[k].position) / total, k / 20.0, 1e-9) << k;
    EXPECT_NEAR(elements[k].matrix.position().z, 1 - k / 20.0, 1e-4) << k;
  }
}

TEST(Phyllotaxis, divergenceCurveBendsTheSpiralAlongTheSequence) {
  HeadScene scene(5);
  scene.disc();
  // Element i adds divergence(i / 5): a fractional count reads the sequence at i / n.
  scene.params.setCurve(Phyllotaxis::divergence, linear(0, 1));
  const auto& elements = scene.run(kWithElements).only(mv::RoleNodes);
  double d = 0;
  for (int k = 0; k < 5; ++k) {
    const Vector3 p = elements[k].matrix.position();
    EXPECT_NEAR(std::atan2(p.x, p.y), d, 1e-9) << k;
    d += k / 5.0;
  }
}

TEST(Phyllotaxis, fractionalNumberAddsAShrinkingLastElement) {
  const struct {
    double number;
    bool fractional;
    std::vector<double> scales;
  } cases[] = {
      {2.5, true, {1, 1, 0.5}},
      {0.5, true, {0.5}},
      {2.5, false, {1, 1}},
      {1.0, true, {1}},
  };
  for (const auto& c : cases) {
    HeadScene scene(c.number);
    scene.disc();
    scene.params.setBool(Phyllotaxis::numberFractional, c.fractional);
    const auto& elements = scene.run(kWithElements).only(mv::RoleNodes);
    ASSERT_EQ(elements.size(), c.scales.size()) << c.number;
    for (size_t i = 0; i < elements.size(); ++i) {
      EXPECT_NEAR(scaleOf(elements[i]), c.scales[i], 1e-12) << c.number << " element " << i;
      EXPECT_EQ(elements[i].count, static_cast<int>(c.scales.size()));
    }
  }
}

TEST(Phyllotaxis, reductionThinsElementsOutAndGrowsTheRest) {
  HeadScene scene(50);
  scene.disc();
  scene.params.setInt(Phyllotaxis::reductionMode, 1);
  const auto& full = scene.run(kWithElements, 1.0).only(mv::RoleNodes);
  ASSERT_EQ(full.size(), 50u);
  EXPECT_NEAR(scaleOf(full[10]), 1.0, 1e-12);
  const GrowthRun reduced = scene.run(kWithElements, 0.0);
  const auto& few = reduced.only(mv::RoleNodes);
  ASSERT_EQ(few.size(), 5u);
  for (const Placement& p : few) EXPECT_NEAR(scaleOf(p), 0.4 + 10 * 0.6, 1e-12);
  scene.params.setInt(Phyllotaxis::reductionMode, 0);
  EXPECT_EQ(scene.run(kWithElements, 0.0).only(mv::RoleNodes).size(), 50u);
}

TEST(Phyllotaxis, spacingFollowsSquaredScaleUnlessSwitchedOff) {
  HeadScene scene(3);
  scene.disc();
  scene.params.setBool(Phyllotaxis::numberFractional, false);
  scene.params.setCurve(Phyllotaxis::scale, linear(1, 2));  // scales 1, 1.5 over the sum
  auto elements = scene.run(kWithElements).only(mv::RoleNodes);
  // The first element claims 1 / (1 + 2.25) of the disc, the second the rest.
  EXPECT_NEAR(elements[1].position, std::sqrt(1 / 3.25), 1e-9);
  EXPECT_NEAR(scaleOf(elements[2]), 2.0, 1e-12);
  scene.params.setDouble(Phyllotaxis::spacingByScale, 0.0);
  elements = scene.run(kWithElements).only(mv::RoleNodes);
  EXPECT_NEAR(elements[1].position, std::sqrt(0.5), 1e-9);
}

TEST(Phyllotaxis, growthCurveReadsTheSequenceAtIOverN) {
  HeadScene scene(11);
  scene.disc();
  scene.params.carriedGrowth = 0.5;
  scene.params.carriedThickness = 0.3;
  scene.params.setBool(Phyllotaxis::nodeGrowthCurved, true);
  scene.params.setCurve(Phyllotaxis::nodeGrowth, linear(1, 0));
  const auto& elements = scene.run(kWithElements).only(mv::RoleNodes);
  for (int k = 0; k < 11; ++k) {
    EXPECT_NEAR(elements[k].carriedGrowth, 0.5 * (1 - k / 11.0), 1e-12) << k;
    EXPECT_EQ(elements[k].carriedThickness, 0.3);
    EXPECT_EQ(elements[k].carriedDensity, 1.0);
    EXPECT_TRUE(elements[k].wantsData);
  }
}

TEST(Phyllotaxis, withoutFollowingThePathElementsStandTiltedOnTheAxis) {
  HeadScene scene(6);
  scene.disc();
  scene.params.setBool(Phyllotaxis::numberFractional, false);  // the last reads tilt at 1
  const auto following = scene.run(kWithElements).only(mv::RoleNodes);
  scene.params.setBool(Phyllotaxis::followPath, false);
  const auto& tilted = scene.run(kWithElements).only(mv::RoleNodes);
  ASSERT_EQ(tilted.size(), 6u);
  for (int k = 0; k < 6; ++k) {
    expectNear(tilted[k].matrix.position(), following[k].matrix.position(), 1e-12);
  }
  // tilt runs 0 to pi over the sequence, and pi is added: the first stands upside down.
  expectNear(tilted[0].matrix, mv::Matrix4::rotationX(kPi), 1e-12);
  expectNear(tilted[5].matrix.row(2), {0, 0, 1}, 1e-12);
}

TEST(Phyllotaxis, badInputGivesNothingAndTheMessageWhereDue) {
  {
    CapturingMessageHandler capture;  // role 4 absent: nothing is read
    HeadScene scene(0);
    EXPECT_EQ(scene.run(1).placed, 0);
    EXPECT_TRUE(capture.errors.empty());
  }
  auto expectRefused = [](HeadScene& scene, const char* what) {
    CapturingMessageHandler capture;
    const GrowthRun run = scene.run(kWithElements);
    EXPECT_EQ(run.placed, 0) << what;
    EXPECT_TRUE(run.placements.empty()) << what;
    ASSERT_EQ(capture.errors.size(), 1u) << what;
    EXPECT_EQ(capture.errors[0], "Parameter Retrieval failed!") << what;
  };
  for (double number : {0.0, -4.0, std::nan("")}) {
    HeadScene scene(number);
    scene.disc();
    expectRefused(scene, "number");
  }
  for (int id : {Phyllotaxis::divergence, Phyllotaxis::scale, Phyllotaxis::nodeGrowth}) {
    HeadScene scene(5);
    scene.disc();
    scene.params.curves.erase(id);
    expectRefused(scene, "curve");
  }
  HeadScene untilted(5);
  untilted.disc();
  untilted.params.curves.erase(Phyllotaxis::tilt);
  EXPECT_EQ(untilted.run(kWithElements).only(mv::RoleNodes).size(), 5u);  // not needed
  untilted.params.setBool(Phyllotaxis::followPath, false);
  expectRefused(untilted, "tilt");
  untilted.params.pathNode = nullptr;
  expectRefused(untilted, "profile");
}

TEST(Phyllotaxis, degenerateProfilesAndHugeCountsStayBounded) {
  HeadScene point(10);
  appendSegment(point.profile, {{1, 0, 0}});  // no area: every element gathers at the start
  EXPECT_EQ(point.run(kWithElements).only(mv::RoleNodes).size(), 10u);

  HeadScene empty(10);
  EXPECT_EQ(empty.run(kWithElements).only(mv::RoleNodes).size(), 10u);

  HeadScene broken(10);  // NaN in every curve: still ten elements and no endless search
  broken.disc();
  for (auto& [id, curve] : broken.params.curves) ASSERT_TRUE(curve.setExpression("x/0*0"));
  EXPECT_EQ(broken.run(kWithElements).only(mv::RoleNodes).size(), 10u);

  CapturingMessageHandler capture;
  HeadScene huge(1e12);
  huge.disc();
  EXPECT_EQ(huge.run(kWithElements).placed, 0);
  EXPECT_EQ(capture.errors.size(), 1u);
}

TEST(PhyllotaxisIntegration, tableKeepsTheFirstOfEqualParametersAndSeeksInside) {
  mv::PolylineSpline profile;
  appendSegment(profile, {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, false, {0, 0.5, 1});
  appendSegment(profile, {{5, 0, 0}}, false, {0.5});  // same t as the middle point: dropped
  mv::PhyllotaxisIntegration area(&profile);
  EXPECT_EQ(area.size(), 3u);
  EXPECT_NEAR(area.integrate(0, 1), 2 * kPi * (0.5 * 1.5 + 0.5 * 2.5), 1e-12);
  double x = 0, y = 0;
  area.seek(-0.1);  // before the first key
  EXPECT_FALSE(area.next(x, y));
  area.seek(1.0);  // no key after it
  EXPECT_FALSE(area.next(x, y));
  area.seek(0.7);
  ASSERT_TRUE(area.next(x, y));
  EXPECT_EQ(x, 0.5);
  EXPECT_NEAR(y, 4 * kPi, 1e-12);
  EXPECT_EQ(mv::PhyllotaxisIntegration(nullptr).integrate(0, 1), 0.0);
}

TEST(Phyllotaxis, rolesNameAndSurfaceFlag) {
  HeadScene scene(5);
  std::string name;
  EXPECT_EQ(scene.node.typeName(name), "Phyllotaxis");
  std::vector<int> roles;
  EXPECT_TRUE(scene.node.assignRoles(scene.params, roles, 4));
  EXPECT_EQ(roles, (std::vector<int>{2, 4, 16, 16}));
  EXPECT_FALSE(scene.node.hasGeometry(scene.params));
  scene.params.setBool(Phyllotaxis::showSurface, true);
  EXPECT_TRUE(scene.node.hasGeometry(scene.params));
  scene.disc();
  const GrowthRun run = scene.run(kWithElements);
  EXPECT_TRUE(run.mesh.points.empty());  // claims a surface, writes none
  EXPECT_EQ(run.only(mv::RoleNodes).size(), 5u);
}
