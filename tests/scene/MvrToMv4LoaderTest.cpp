#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "SceneLoadSupport.h"
#include "core/MathConstants.h"
#include "scene/MvrConversionCurves.h"
#include "support/CapturingMessageHandler.h"
#include "support/ConversionRecorder.h"
#include "support/GeometryExpectations.h"

namespace {

using mv::CurveParam;
using mv::kPi;
using mv::MvrConversionCurves;
using mv::Vector3;

constexpr double kEps = 1e-9;

std::string knots(const std::string& block, std::initializer_list<Vector3> points) {
  std::string text = block + " {\nSize " + std::to_string(points.size()) + "\n";
  for (const Vector3& p : points)
    text += std::to_string(p.x) + "," + std::to_string(p.y) + "," + std::to_string(p.z) + "\n";
  return text + "}\n";
}

struct Conversion {
  CapturingMessageHandler messages;
  ConversionRecorder loader;
  mv::ParameterSetData settings;
  bool result = false;

  explicit Conversion(double unit = 1.0) { loader.initParameters(settings, unit); }
  Conversion& run(const std::string& structs) {
    result = convertScene(loader, settings, sceneOf(structs));
    return *this;
  }
};

// The curve's value at each u.
std::vector<double> valuesAt(const CurveParam& curve, const std::vector<double>& us) {
  std::vector<double> values;
  for (double u : us) values.push_back(curve.evaluate(u));
  return values;
}

void expectValues(const CurveParam& curve, const std::vector<double>& us,
                  const std::vector<double>& expected, double tolerance = kEps) {
  const std::vector<double> values = valuesAt(curve, us);
  ASSERT_EQ(values.size(), expected.size());
  for (size_t i = 0; i < values.size(); ++i)
    EXPECT_NEAR(values[i], expected[i], tolerance) << "at u " << us[i];
}

}  // namespace

TEST(MvrConversionCurves, clampCurveReplacesOnlyACurveThatLeavesTheRangeAtASample) {
  struct Row {
    CurveParam curve;
    std::vector<double> positions;
    bool replaced;
    std::vector<double> atSamples;  // u 0, inner positions, u 1
  };
  const Row rows[] = {
      {CurveParam(0, 2, 0.2, 0.8, "id"), {0.0, 0.5, 1.0}, false, {0.2, 0.5, 0.8}},
      {CurveParam(0, 2, 0.0, 2.0, "id"), {0.0, 0.25, 0.5, 1.0}, true, {0.0, 0.5, 1.0, 1.0}},
      {CurveParam(-1, 1, -1.0, 1.0, "id"), {0.0, 0.5, 1.0}, true, {0.0, 0.0, 1.0}},
      // Between the samples the curve may leave the range: only the samples count.
      {CurveParam(0, 2, 0.0, 2.0, 0.0, mv::PointSmooth),
       {0.0, 0.25, 0.75, 1.0},
       true,
       {0.0, 1.0, 1.0, 0.0}},
  };
  for (const Row& row : rows) {
    CurveParam curve = row.curve;
    EXPECT_EQ(MvrConversionCurves::clampCurve(curve, row.positions, 0.0, 1.0), row.replaced);
    const std::vector<double> samples = MvrConversionCurves::samplePositions(row.positions);
    expectValues(curve, samples, row.atSamples, 1e-6);
    if (row.replaced) {
      EXPECT_DOUBLE_EQ(curve.minimum(), -0.1);
      EXPECT_DOUBLE_EQ(curve.maximum(), 1.1);
      EXPECT_EQ(curve.getPointCount(), static_cast<int>(samples.size()));
    }
  }
}

TEST(MvrConversionCurves, samplesAreTheEndsAndTheInnerPositions) {
  EXPECT_EQ(MvrConversionCurves::samplePositions({0.1, 0.4, 0.6, 0.9}),
            (std::vector<double>{0.0, 0.4, 0.6, 1.0}));
  EXPECT_EQ(MvrConversionCurves::samplePositions({}), (std::vector<double>{0.0, 1.0}));
}

TEST(MvrToMv4LoaderPlain, simpleKindsBecomeNullsAndAHyperpatchADeformGrid) {
  Conversion c;
  c.run(structOf("Cam", "Camera {\n}\n" + nameList({"Lean", "Odd"}, "Children")) +
        structOf("Lean", knots("HyperPatch {\nPatch_Points", {{0, 0, 0},
                                                              {1, 0, 0},
                                                              {0, 1, 0},
                                                              {1, 1, 0},
                                                              {0, 0, 1},
                                                              {1, 0, 1},
                                                              {0, 1, 1},
                                                              {1, 1, 1}}) +
                             "}\n") +
        structOf("Odd", "Primitive {\nType \"Box\"\n}\nRevo {\n}\n"));
  ASSERT_TRUE(c.result);
  EXPECT_EQ(c.loader.operationOf("Cam"), "createNull");
  EXPECT_EQ(c.loader.operationOf("Lean"), "createDeformGrid");
  EXPECT_EQ(c.loader.grids.at("Lean").size(), 8u);
  EXPECT_EQ(c.loader.grids.at("Lean")[7], (Vector3{1, 1, 1}));
  // A revo around anything but a tube is no revo: a plain object.
  EXPECT_EQ(c.loader.operationOf("Odd"), "createNull");
  EXPECT_NE(
      std::find(c.messages.debugs.begin(), c.messages.debugs.end(), "Unknown Component Type Revo"),
      c.messages.debugs.end());
  EXPECT_EQ(c.loader.children(""), std::vector<std::string>{"Cam"});
  EXPECT_EQ(c.loader.children("Cam"), (std::vector<std::string>{"Lean", "Odd"}));
}

TEST(MvrToMv4LoaderRevo, aHeightThatTurnsBackIsBakedAndOneThatRunsOnIsABranch) {
  struct Row {
    std::string shape;
    bool baked;
  };
  const Row rows[] = {
      {knots("Shape", {{0.5, 0, 0}, {1, 0, 1}, {0.5, 0, 0.5}}), true},
      {knots("Shape", {{0.5, 0, 0}, {1, 0, 1}, {0.8, 0, 1}, {0.5, 0, 2}}), false},
      {knots("Shape", {{0.5, 0, 1}, {1, 0, 0}}), false},
  };
  for (const Row& row : rows) {
    Conversion c;
    c.run(
        structOf("Vase", "Primitive {\nType \"Tube\"\nPoints 8\n}\nRevo {\n" + row.shape + "}\n"));
    ASSERT_TRUE(c.result) << row.shape;
    const std::string operation = c.loader.operationOf("Vase");
    if (row.baked) {
      EXPECT_EQ(operation, "createMesh");
      // Two rings of eight quads between each pair of the three profile points.
      EXPECT_EQ(c.loader.meshPolygons.at("Vase"), 16u);
      EXPECT_FALSE(c.loader.created("Vase_Path"));
    } else {
      EXPECT_EQ(operation, "createBranch");
      EXPECT_EQ(c.loader.branches.at("Vase").path, "Vase_Path");
      EXPECT_EQ(c.loader.branches.at("Vase").profile, "Vase_Tube");
    }
  }
}

TEST(MvrToMv4LoaderRevo, theBranchFollowsTheAxisWithTheRadiiAsCornerThickness) {
  Conversion c;
  c.run(structOf("Vase", "Primitive {\nType \"Tube\"\n}\nRevo {\n" +
                             knots("Shape", {{0.5, 0, 0}, {1, 0, 1}, {0.8, 0, 1}, {0.4, 0, 3}}) +
                             "}\n"));
  ASSERT_TRUE(c.result);
  EXPECT_EQ(c.loader.splinePoints.at("Vase_Path"),
            (std::vector<Vector3>{{0, 0, 0}, {0, 0, 1}, {0, 0, 1}, {0, 0, 3}}));
  const mv::MvrBranchRecord& branch = c.loader.branches.at("Vase");
  EXPECT_DOUBLE_EQ(branch.thickness.minimum(), 0.4 * 1.1);
  EXPECT_DOUBLE_EQ(branch.thickness.maximum(), 1.0 * 1.1);
  // Keys by arc length over 3: 0, 1/3 (the later radius of the two at the same height), 1.
  expectValues(branch.thickness, {0.0, 1.0 / 3.0, 1.0}, {0.5, 0.8, 0.4});
  for (int i = 0; i < branch.thickness.getPointCount(); ++i)
    EXPECT_EQ(branch.thickness.getPoint(i)->type, mv::PointCorner);
  EXPECT_EQ(branch.nodeNumber, 0.0);
  EXPECT_TRUE(branch.pairedNodes);
  EXPECT_FALSE(branch.pathGrowthInherited || branch.thicknessInherited ||
               branch.nodeThicknessCurved || branch.nodeNumberInherited);
}

TEST(MvrToMv4LoaderArrangers, aWreathIsARingTurnedAboutYAndAHydraAStar) {
  Conversion c;
  c.run(structOf("Cam", "Camera {\n}\n" + nameList({"Ring", "Star"}, "Children")) +
        structOf("Ring",
                 "Transform {\nTranslation {2,-50,50} {0,-50,50} {0,-50,50}\n}\n"
                 "Wreath {\nNumber {5.7,1,100}\n}\n") +
        structOf("Star", "Hydra {\nNumber {6.9,1,100}\n}\n"));
  ASSERT_TRUE(c.result);
  const mv::MvrHydraRecord& ring = c.loader.hydras.at("Ring");
  EXPECT_EQ(ring.hydraMode, 0);
  EXPECT_EQ(ring.number, 5.0);
  EXPECT_DOUBLE_EQ(ring.hydraSweep.evaluate(1.0), 2 * kPi);
  EXPECT_DOUBLE_EQ(ring.hydraTilt.evaluate(0.3), kPi / 2);
  const mv::Matrix4& matrix = c.loader.created("Ring")->header.matrix;
  // The quarter turn sends x to -z and z to x; the translation stays.
  expectNear(matrix.row(0), {0, 0, -1}, 1e-12);
  expectNear(matrix.row(2), {1, 0, 0}, 1e-12);
  expectNear(matrix.position(), {2, 0, 0}, 1e-12);
  const mv::MvrHydraRecord& star = c.loader.hydras.at("Star");
  EXPECT_EQ(star.hydraMode, 1);
  EXPECT_EQ(star.number, 6.0);
  EXPECT_EQ(star.radius, 0.0);
}

TEST(MvrToMv4LoaderPhiball, theProfileArcFollowsTheFanAngles) {
  struct Row {
    std::string fan;
    std::string operation;
    std::vector<double> arc;  // radius, start, end, offset
  };
  const double r = 2.0;
  const double e = 1.2;
  const Row rows[] = {
      {"0.3,1.2,\"id\",0,3.14",
       "createArc",
       {r / std::sin(e), kPi / 2 - 0.3, kPi / 2 - 1.2, -std::sin(kPi / 2 - e) * r / std::sin(e)}},
      {"1.0,2.0,\"id\",0,3.14", "createArc", {r, kPi / 2 - 1.0, kPi / 2 - 2.0, 0.0}},
      {"1.0,1.0,\"id\",0,3.14", "createSpline", {}},
  };
  for (const Row& row : rows) {
    Conversion c;
    c.run(structOf("Head",
                   "PhiBall {\nNumber {21,1,500}\nRadius {2,0,10}\nFan " + row.fan + "\n}\n"));
    ASSERT_TRUE(c.result) << row.fan;
    const mv::MvrPhyllotaxisRecord& phyllotaxis = c.loader.phyllotaxes.at("Head");
    const ConversionRecorder::Call* profile = c.loader.created(phyllotaxis.profile);
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->operation, row.operation);
    for (size_t i = 0; i < row.arc.size(); ++i) EXPECT_NEAR(profile->values[i], row.arc[i], kEps);
    if (row.arc.empty()) {
      EXPECT_EQ(c.loader.splinePoints.at("Head_Spline"),
                (std::vector<Vector3>{{r, 0, 0}, {0, 0, 0}}));
    }
    EXPECT_EQ(phyllotaxis.number, 21.0);
    EXPECT_TRUE(phyllotaxis.followPath);
    EXPECT_FALSE(phyllotaxis.numberFractional || phyllotaxis.showSurface);
  }
}

TEST(MvrToMv4LoaderPhiball, tiltSpreadsTheElementsEvenlyInAreaBetweenThePolarAngles) {
  Conversion c;
  c.run(structOf("Head", "PhiBall {\nNumber {5,1,500}\nFan 0.2,1.4,\"id\",0,3.14\n}\n"));
  ASSERT_TRUE(c.result);
  const CurveParam& tilt = c.loader.phyllotaxes.at("Head").tilt;
  for (double t : {0.0, 0.25, 0.5, 0.75, 1.0}) {
    EXPECT_NEAR(tilt.evaluate(t), std::acos((1 - t) * std::cos(0.2) + t * std::cos(1.4)), 1e-9)
        << t;
  }
  EXPECT_EQ(tilt.getPointCount(), 5);
}

TEST(MvrToMv4LoaderHorn, aHornWithoutPathWalksACurvatureSplineWithScaledCurves) {
  for (const bool smooth : {false, true}) {
    Conversion c(10.0);
    c.run(structOf("Horn", "Horn {\nSegments 19\nMoveScale 4\nLength {3,0,20}\n" +
                               std::string(smooth ? "Smooth\n" : "") +
                               "RotX 0.1,0.1,\"id\",-1,1\nTrX 0.5,0.5,\"id\",-1,1\n}\n"));
    ASSERT_TRUE(c.result);
    const mv::MvrBranchRecord& branch = c.loader.branches.at("Horn");
    EXPECT_EQ(branch.path, "Horn_Curvature");
    const mv::MvrCurvatureRecord& curvature = c.loader.curvatures.at("Horn_Curvature");
    EXPECT_EQ(curvature.curvSteps, 19.0);
    EXPECT_DOUBLE_EQ(curvature.curvScaleZ, 60.0);
    EXPECT_DOUBLE_EQ(curvature.curvLength, smooth ? 4.0 / 20 : 4.0 * 19 / 20);
    // The factor 20 x 20 / 19 = 21.05263157894737 enters the expression in stream form.
    std::string expression;
    curvature.curv_rota_x.getExpression(expression);
    EXPECT_EQ(expression.rfind("21.0526*(", 0), 0u) << expression;
    EXPECT_NEAR(curvature.curv_rota_x.evaluate(0.5), 0.1 * 21.05263157894737, 1e-5);
    EXPECT_NEAR(curvature.curv_tran_x.evaluate(0.5), 0.5 * 10.0, 1e-12);
    EXPECT_EQ(branch.nodeNumber, 18.0);
    EXPECT_DOUBLE_EQ(branch.nodeAngle.evaluate(0.5), kPi / 2);
    EXPECT_DOUBLE_EQ(branch.nodeDensity.evaluate(0.5), 1.0);
    EXPECT_DOUBLE_EQ(branch.nodeDistribution.evaluate(0.5), 0.5);
  }
}

TEST(MvrToMv4LoaderHorn, aHornWithAPathTakesItsKnotsOrSamplesOfIt) {
  const std::string body =
      "Horn {\nSegments 4\nSpline\n" + knots("Knots", {{0, 0, 0}, {0, 0, 1}, {0, 0, 2}}) + "}\n";
  Conversion sampled;
  sampled.run(structOf("Horn", body));
  ASSERT_TRUE(sampled.result);
  const std::vector<Vector3>& samples = sampled.loader.splinePoints.at("Horn_Spline");
  ASSERT_EQ(samples.size(), 5u);
  expectNear(samples[2], {0, 0, 10}, 1e-9);
  expectNear(samples[4], {0, 0, 20}, 1e-9);
  EXPECT_EQ(sampled.loader.created("Horn_Spline")->values, (std::vector<double>{0, 0, 0}));

  Conversion knotted;
  knotted.settings.setBool(mv::MvrToMv4Loader::IdHornKnotPath, true);
  knotted.run(structOf("Horn", body));
  ASSERT_TRUE(knotted.result);
  EXPECT_EQ(knotted.loader.splinePoints.at("Horn_Spline"),
            (std::vector<Vector3>{{0, 0, 0}, {0, 0, 1}, {0, 0, 2}}));
  // Interpolated, subdivided by floor(4 - 1) / 3 knots.
  EXPECT_EQ(knotted.loader.created("Horn_Spline")->values, (std::vector<double>{0, 1, 1}));
}

TEST(MvrToMv4LoaderLeaf, positionsFollowTheDensityAndEndAtOne) {
  const CurveParam even(0, 2, 1.0, 1.0, "id");
  const std::vector<double> evenPositions = mv::MvrToMv4Loader::leafPositions(even, 4.0);
  ASSERT_EQ(evenPositions.size(), 5u);
  for (size_t i = 0; i < 5; ++i) EXPECT_NEAR(evenPositions[i], i / 4.0, kEps);
  // Density rising from 1 to 2: steps 1, 1.25, 1.5, 1.75 of 5.5.
  const CurveParam rising(0, 2, 1.0, 2.0, "id");
  const std::vector<double> positions = mv::MvrToMv4Loader::leafPositions(rising, 4.0);
  const std::vector<double> expected{0.0, 1 / 5.5, 2.25 / 5.5, 3.75 / 5.5, 1.0};
  ASSERT_EQ(positions.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(positions[i], expected[i], kEps);
}

TEST(MvrToMv4LoaderLeaf, theLeafClosesAtItsTipAndBendsByItsTropisms) {
  Conversion c;
  c.run(structOf("Blade",
                 "Primitive {\nType \"Tube\"\n}\nLeaf {\nSegments {4,1,100}\n"
                 "Shape 1,1,\"id\",0,2\n" +
                     knots("Phototropism", {{0, 0, 0}, {0.5, 0.4, 0}, {1, 0, 0}}) +
                     knots("Gravitropism", {{0, 0.3, 0}, {1, 0.3, 0}}) + "}\n" +
                     nameList({"Bud"}, "Children")) +
        structOf("Bud"));
  ASSERT_TRUE(c.result);
  const mv::MvrBranchRecord& branch = c.loader.branches.at("Blade");
  EXPECT_EQ(branch.path, "Blade_Curvature");
  expectValues(branch.thickness, {0.0, 0.5, 1.0}, {1.0, 0.5, 0.0}, 1e-9);
  EXPECT_DOUBLE_EQ(c.loader.curvatures.at("Blade_Curvature").curvLength, 0.05);
  // Only the phototropism bends inside; the flat gravitropism makes no tropism.
  EXPECT_EQ(c.loader.children("Blade_Curvature"), std::vector<std::string>{"Phototropism"});
  EXPECT_EQ(c.loader.created("Phototropism")->values, (std::vector<double>{0, 4}));
  EXPECT_NEAR(c.loader.tropisms.at("Phototropism").evaluate(0.5), 0.4 * 5, 1e-9);
  // The leaf's children stand behind a link node, which comes first.
  EXPECT_EQ(c.loader.children("Blade"), (std::vector<std::string>{"Standard_Link", "Bud"}));
  EXPECT_EQ(branch.nodeNumber, 10.0);
  EXPECT_NEAR(branch.nodeScrew.evaluate(0.5), 3.883221519818898, 1e-12);
}

TEST(MvrToMv4LoaderLeaf, aSquareLeafIsAPlainObjectWithItsPlane) {
  Conversion c;
  c.run(structOf("Leaf", "Primitive {\nType \"Square\"\n}\nLeaf {\n}\n"));
  ASSERT_TRUE(c.result);
  EXPECT_EQ(c.loader.operationOf("Leaf"), "createNull");
  EXPECT_EQ(c.loader.children("Leaf"), std::vector<std::string>{"Leaf_Square"});
}

TEST(MvrToMv4LoaderTree, pairsAndVersionChooseFlapArrangementAndWhorl) {
  struct Row {
    int version, pairs;
    double flap;
    int arrangement;
    bool paired;
    bool halfTurnScrew;
  };
  const Row rows[] = {
      {6, 0, kPi, 1, false, false},     {6, 1, kPi / 2, 2, false, false},
      {6, 2, kPi, 3, false, true},      {6, 3, kPi / 2, 4, false, true},
      {6, 4, kPi, 5, true, true},       {6, 5, kPi / 2, 6, true, true},
      {6, 7, kPi, 1, false, false},     {4, 0, 0.0, 0, false, false},
      {4, 3, -kPi / 2, 0, false, true}, {4, 4, 0.0, 0, true, true},
      {2, 5, 0.0, 0, true, true},       {1, 1, kPi / 2, 2, false, false},
  };
  for (const Row& row : rows) {
    Conversion c;
    c.run(structOf("T", "Tree {\nVersion " + std::to_string(row.version) + "\nPairs " +
                            std::to_string(row.pairs) + "\n" +
                            knots("Screw", {{0, 0.5, 0}, {1, 0.5, 0}}) + "}\n"));
    ASSERT_TRUE(c.result);
    const mv::MvrBranchRecord& branch = c.loader.branches.at("T");
    const std::string where =
        "version " + std::to_string(row.version) + " pairs " + std::to_string(row.pairs);
    EXPECT_NEAR(branch.nodeFlap.evaluate(0.5), row.flap, 1e-12) << where;
    EXPECT_EQ(branch.nodeArrangement, row.arrangement) << where;
    EXPECT_EQ(branch.pairedNodes, row.paired) << where;
    EXPECT_NEAR(branch.nodeScrew.evaluate(0.5), row.halfTurnScrew ? kPi : 0.5 * 3.2360678, 1e-9)
        << where;
  }
}

TEST(MvrToMv4LoaderTree, theBranchTakesTheTreeCurvesClampedAndItsInheritance) {
  Conversion c;
  c.run(structOf("T",
                 "Primitive {\nType \"Tube\"\n}\nTree {\nBranch_Num {3,1,100}\n"
                 "IniScale {0.8,0,1}\n" +
                     knots("Shape", {{0, 1.5, 0}, {1, 0.5, 0}}) +
                     knots("Dense", {{0, 2, 0}, {1, 0.5, 0}}) +
                     knots("Scale", {{0, 0.6, 0}, {1, 0.6, 0}}) +
                     knots("GeomScale", {{0, 0.5, 0}, {1, 0.5, 0}}) + "}\n"));
  ASSERT_TRUE(c.result);
  const mv::MvrBranchRecord& branch = c.loader.branches.at("T");
  EXPECT_EQ(branch.profile, "T_Tube");
  EXPECT_EQ(branch.path, "T_Path");
  EXPECT_DOUBLE_EQ(branch.pathGrowth, 0.8);
  EXPECT_TRUE(branch.thicknessInherited);
  EXPECT_TRUE(branch.pathGrowthInherited && branch.nodeThicknessCurved &&
              branch.nodeNumberInherited && branch.nodeGrowthCurved && branch.nodeDensityCurved);
  EXPECT_EQ(branch.nodeNumber, 3.0);
  // Shape 1.5 at the root is clamped to 1 there.
  EXPECT_DOUBLE_EQ(branch.thickness.minimum(), -0.1);
  EXPECT_NEAR(branch.thickness.evaluate(0.0), 1.0, 1e-9);
  EXPECT_NEAR(branch.thickness.evaluate(1.0), 0.5, 1e-9);
  // Density is one over the classic density: 0.5 at the root, 2 at the tip.
  EXPECT_NEAR(branch.nodeDensity.evaluate(0.0), 0.5, 1e-9);
  EXPECT_NEAR(branch.nodeDensity.evaluate(1.0), 2.0, 1e-9);
  EXPECT_DOUBLE_EQ(branch.nodeDensity.maximum(), 2.1);
  EXPECT_DOUBLE_EQ(branch.nodeDensity.minimum(), -0.1);
  EXPECT_NEAR(branch.nodeScale.evaluate(0.5), 0.5, 1e-9);
  EXPECT_NEAR(branch.nodeGrowth.evaluate(0.5), 0.6, 1e-9);
}

TEST(MvrToMv4LoaderTree, oldTreesCarryScaleOverDensityAtTheBranchKnots) {
  Conversion c;
  c.run(structOf("T", "Tree {\nVersion 3\nBranch_Num {3,1,100}\n" +
                          knots("Dense", {{0, 0.5, 0}, {1, 0.5, 0}}) +
                          knots("Scale", {{0, 0.8, 0}, {1, 0.8, 0}}) + "}\n"));
  ASSERT_TRUE(c.result);
  const CurveParam& growth = c.loader.branches.at("T").nodeGrowth;
  // 0.8 over a carried density of 1 / 0.5 is 0.4, at every knot.
  expectValues(growth, {0.0, 0.25, 0.5, 0.75}, {0.4, 0.4, 0.4, 0.4});
  for (int i = 0; i < growth.getPointCount(); ++i)
    EXPECT_EQ(growth.getPoint(i)->type, mv::PointCorner);
}

TEST(MvrToMv4LoaderTree, aStraightTrunkBecomesAPathAlongZTurnedForOldVersions) {
  for (const bool knotPath : {false, true}) {
    Conversion c(10.0);
    c.settings.setBool(mv::MvrToMv4Loader::IdTreeKnotPath, knotPath);
    // Without kink or wander the trunk stays straight.
    c.run(structOf("T", "Tree {\nSegments 8\nLength {2,0,20}\nBranch_Num {3,1,100}\n" +
                            knots("Kruschtl", {{0, 0, 0}, {0.5, 0, 0}, {1, 0, 0}}) + "}\n"));
    ASSERT_TRUE(c.result);
    const std::vector<Vector3>& points = c.loader.splinePoints.at("T_Path");
    ASSERT_GE(points.size(), 2u);
    expectNear(points.front(), {0, 0, 0}, 1e-9);
    // The straight trunk of length 2 at unit 10 ends at height 20 either way.
    expectNear(points.back(), {0, 0, 20}, 1e-6);
    for (const Vector3& point : points) EXPECT_NEAR(std::hypot(point.x, point.y), 0.0, 1e-9);
    EXPECT_EQ(c.loader.created("T_Path")->values[1], knotPath ? 1.0 : 0.0);
  }
}

TEST(MvrToMv4LoaderTree, tropismComesOnlyFromACurveWithAnInnerBend) {
  struct Row {
    std::string curves;
    bool tropism;
  };
  const Row rows[] = {
      {knots("Phototropism", {{0, 0.5, 0}, {1, 0.9, 0}}), false},
      {knots("Phototropism", {{0, 0, 0}, {0.5, 0.4, 0}, {1, 0, 0}}), true},
      {knots("Gravitropism", {{0, 0, 0}, {0.5, 0.4, 0}, {1, 0, 0}}), true},
  };
  for (const Row& row : rows) {
    Conversion c;
    c.run(structOf("T", "Tree {\nBranch_Num {3,1,100}\n" + row.curves + "}\n"));
    ASSERT_TRUE(c.result);
    EXPECT_EQ(c.loader.created("T_Tropism") != nullptr, row.tropism) << row.curves;
    if (row.tropism) {
      EXPECT_EQ(c.loader.children("T_Path"), std::vector<std::string>{"T_Tropism"});
      EXPECT_EQ(c.loader.created("T_Tropism")->values, (std::vector<double>{0, 4}));
    }
  }
}

TEST(MvrToMv4LoaderTree, tropismStrengthGivesEachStepTheAreaOfItsBend) {
  const std::vector<double> u{0.0, 0.25, 0.5, 0.75, 1.0};
  const std::vector<Vector3> frames{{0, 0, 0}, {0, 0, 1}, {0, 0, 2}, {0, 0, 3}, {0, 0, 4}};
  const CurveParam light(0, 1, 1.0, 1.0, "id");
  const CurveParam gravity(0, 1, 0.25, 0.25, "id");
  const CurveParam strength = mv::MvrToMv4Loader::treeTropism(u, frames, 1.0, light, gravity);
  // From the third sample on, v = 2 (a - b) d / dx - v before: 6, 0, 6.
  expectValues(strength, u, {0.0, 0.0, 6.0, 0.0, 6.0});
  for (size_t i = 2; i < u.size(); ++i) {
    const double area = (strength.evaluate(u[i]) + strength.evaluate(u[i - 1])) / 2 * 0.25;
    EXPECT_NEAR(area, 0.75 * 1.0, 1e-9);
  }
  // A tree grown to half stops after the first sample past its growth; the last point stays 0.
  const CurveParam half = mv::MvrToMv4Loader::treeTropism(u, frames, 0.5, light, gravity);
  EXPECT_EQ(half.getPointCount(), 5);
  expectValues(half, {0.5, 0.75, 1.0}, {6.0, 0.0, 0.0});
}

TEST(MvrToMv4LoaderLinks, aSharedLeafIsConvertedOnceAndLinkedTwice) {
  Conversion c;
  c.run(structOf("Cam", "Camera {\n}\n" + nameList({"A", "B"}, "Children")) +
        structOf("A", "Primitive {\nType \"Tube\"\n}\nTree {\n" + nameList({"Leaf"}, "Branches") +
                          "}\n") +
        structOf("B", "Primitive {\nType \"Tube\"\n}\nTree {\n" + nameList({"Leaf"}, "Branches") +
                          "}\n") +
        structOf("Leaf", "Primitive {\nType \"Tube\"\n}\nLeaf {\n}\n"));
  ASSERT_TRUE(c.result);
  EXPECT_EQ(c.loader.branches.count("Leaf"), 1u);
  EXPECT_EQ(c.loader.insertCount.at("Leaf"), 2);
  EXPECT_EQ(c.loader.children("A"), std::vector<std::string>{"Leaf"});
  EXPECT_EQ(c.loader.children("B"), std::vector<std::string>{"Leaf"});
  // Each tree has its own path; the names of the primitives stay apart.
  EXPECT_EQ(c.loader.branches.at("A").path, "A_Path");
  EXPECT_EQ(c.loader.branches.at("B").path, "B_Path");
}

TEST(MvrToMv4LoaderLinks, aFailedPathDropsTheObjectAndEndsTheLoadAtARoot) {
  class NoCurvature : public ConversionRecorder {
   public:
    std::string createCurvatureSpline(const std::string&, const mv::MvrCurvatureRecord&) override {
      return {};
    }
  };
  CapturingMessageHandler messages;
  NoCurvature loader;
  mv::ParameterSetData settings;
  loader.initParameters(settings, 1.0);
  EXPECT_FALSE(convertScene(loader, settings, sceneOf(structOf("Horn", "Horn {\n}\n"))));
  EXPECT_TRUE(loader.branches.empty());
  EXPECT_TRUE(loader.children("").empty());
}

TEST(MvrToMv4LoaderExamples, everyExampleConvertsIntoAConnectedHierarchy) {
  const char* const examples[] = {
      "horn.mvr", "hydra.mvr",           "leaf.mvr",   "oak.mvr",       "plant.mvr",
      "pot.mvr",  "shared-children.mvr", "solids.mvr", "sunflower.mvr", "vase.mvr"};
  for (const char* example : examples) {
    Conversion c(100.0);
    c.result = convertScene(c.loader, c.settings, exampleText(example));
    ASSERT_TRUE(c.result) << example;
    EXPECT_TRUE(c.messages.errors.empty()) << example;
    // Every branch runs along a created path; its profile, when it has one, was created too.
    for (const auto& [name, branch] : c.loader.branches) {
      const std::string path = c.loader.operationOf(branch.path);
      EXPECT_TRUE(path == "createSpline" || path == "createCurvatureSpline") << name;
      if (!branch.profile.empty()) {
        EXPECT_TRUE(c.loader.created(branch.profile)) << name;
      }
    }
    EXPECT_FALSE(c.loader.children("").empty()) << example;
  }
}

TEST(MvrToMv4LoaderExamples, theOakBecomesBranchesWithATropismOnTheTrunk) {
  Conversion c(100.0);
  c.result = convertScene(c.loader, c.settings, exampleText("oak.mvr"));
  ASSERT_TRUE(c.result);
  EXPECT_EQ(c.loader.children(""), std::vector<std::string>{"Camera"});
  EXPECT_EQ(c.loader.children("Camera"), std::vector<std::string>{"Oak"});
  EXPECT_EQ(c.loader.children("Oak"), std::vector<std::string>{"Bough"});
  EXPECT_EQ(c.loader.children("Bough"), std::vector<std::string>{"Leaf"});
  EXPECT_EQ(c.loader.children("Oak_Path"), std::vector<std::string>{"Oak_Tropism"});
  const mv::MvrBranchRecord& oak = c.loader.branches.at("Oak");
  EXPECT_EQ(oak.nodeNumber, 12.0);
  EXPECT_EQ(oak.nodeArrangement, 2);  // version 6, pairs 1
  EXPECT_EQ(c.loader.operationOf("Leaf_Curvature"), "createCurvatureSpline");
  // The trunk path has a point for each of the 24 trunk samples and starts at the root.
  const std::vector<Vector3>& path = c.loader.splinePoints.at("Oak_Path");
  EXPECT_GE(path.size(), 24u);
  expectNear(path.front(), {0, 0, 0}, 1e-9);
}
