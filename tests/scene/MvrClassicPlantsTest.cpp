// What a scene load writes into a classic tree, horn and leaf on top of their defaults.
#include <gtest/gtest.h>

#include "ClassicLeaf.h"
#include "ClassicTree.h"
#include "MvrClassicPlants.h"
#include "MvrLoader.h"
#include "ParameterSetData.h"

using namespace mv;

namespace {

MvrHeader photoHeader() {
  MvrHeader header("Plant");
  header.photoAxis = 1;
  header.photoMode = 1;
  header.photoStrength = 0.4;
  header.attractorCenter = 2.5;
  header.attractorMode = 3;
  return header;
}

}  // namespace

TEST(MvrClassicPlants, treeTakesItsNumbersCurvesAndPath) {
  MvrTreeRecord record;
  record.unit = 100.0;
  record.segments = 7.5;
  record.branchNum = 4.0;
  record.pairs = 3;
  record.version = 4;
  record.angle = CurveParam(0, 1, 0.2, 0.3, "id");
  record.path = {{0.0, {0, 0, 0}}, {1.0, {0, 1, 2}}};
  ClassicTree tree;
  ParameterSetData params;
  tree.initParameters(params, 1.0);
  MvrClassicPlants::loadTree(tree, params, photoHeader(), record);
  EXPECT_EQ(params.getDouble(IdUnit), 100.0);
  EXPECT_EQ(params.getDouble(IdTreeSegments), 7.5);
  EXPECT_EQ(params.getDouble(IdBranchNum), 4.0);
  EXPECT_EQ(params.getInt(IdPairs), 3);
  EXPECT_EQ(params.getInt(IdVersion), 4);
  EXPECT_EQ(params.getInt(IdPhotoAxis), 1);
  EXPECT_EQ(params.getInt(IdPhotoMode), 0);  // the mode is never taken over
  EXPECT_EQ(params.getDouble(IdPhotoStrength), 0.4);
  EXPECT_DOUBLE_EQ(params.getCurve(IdAngle)->evaluate(1.0), 0.3);
  EXPECT_EQ(tree.path.keys, record.path);
  bool ok = true;
  params.getDouble(MvrLoader::IdAttractorA, &ok);
  EXPECT_FALSE(ok);  // a tree has no attractor set
}

TEST(MvrClassicPlants, hornTakesItsStepsAndAttractorWhileALeafIgnoresMoveScaleAndTop) {
  MvrHornRecord record;
  record.segments = 12;
  record.moveScale = 20;
  record.top = true;
  record.steps = CurveParam(1, 200, 3, 3, "id");
  record.gravitropism = CurveParam(0, 1, 0.5, 0.5, "id");
  ClassicHorn horn;
  ParameterSetData hornParams;
  horn.initParameters(hornParams, 1.0);
  MvrClassicPlants::loadHorn(horn, hornParams, photoHeader(), record);
  EXPECT_EQ(hornParams.getDouble(IdMoveScale), 20.0);
  EXPECT_TRUE(hornParams.getBool(IdHornTop));
  EXPECT_DOUBLE_EQ(hornParams.getCurve(IdSteps)->evaluate(0.5), 3.0);
  EXPECT_EQ(hornParams.getDouble(MvrLoader::IdAttractorA), 2.5);
  EXPECT_EQ(hornParams.getInt(MvrLoader::IdAttractorMode), 3);

  ClassicLeaf leaf;
  ParameterSetData leafParams;
  leaf.initParameters(leafParams, 1.0);
  MvrClassicPlants::loadLeaf(leaf, leafParams, photoHeader(), record);
  EXPECT_EQ(leafParams.getDouble(IdMoveScale), MvrClassicPlants::kLeafMoveScale);
  EXPECT_FALSE(leafParams.getBool(IdHornTop));
  EXPECT_EQ(leafParams.getDouble(IdHornSegments), 12.0);
  EXPECT_DOUBLE_EQ(leafParams.getCurve(IdLeafGravitropism)->evaluate(0.2), 0.5);
  bool ok = true;
  leafParams.getDouble(MvrLoader::IdAttractorA, &ok);
  EXPECT_FALSE(ok);
}
