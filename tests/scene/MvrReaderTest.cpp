#include <gtest/gtest.h>

#include <sstream>

#include "scene/Chunk.h"
#include "scene/MvrReader.h"
#include "support/GeometryExpectations.h"

using mv::MvrReader;

namespace {

std::unique_ptr<mv::Chunk> readText(const std::string& text) {
  auto root = std::make_unique<mv::Chunk>();
  std::istringstream stream(text);
  root->read(stream);
  return root;
}

mv::MvrComponent component(const std::string& structBody) {
  return MvrReader::readComponent(*readText(structBody));
}

MvrReader::KeyFrames scan(const std::string& text, std::vector<int>* frames = nullptr) {
  const auto root = readText(text);
  MvrReader::KeyFrames keyFrames;
  for (const auto& [name, child] : root->children)
    MvrReader::scanBlock(name, *child, keyFrames, [frames](int n) {
      if (frames) frames->push_back(n);
    });
  return keyFrames;
}

void expectRange(const mv::MvrRange& r, double start, double end, const std::string& function,
                 double min, double max) {
  EXPECT_EQ(r.start, start);
  EXPECT_EQ(r.end, end);
  EXPECT_EQ(r.function, function);
  EXPECT_EQ(r.min, min);
  EXPECT_EQ(r.max, max);
}

void expectTriple(const mv::MvrTriple& t, double value, double lower, double upper) {
  EXPECT_EQ(t.value, value);
  EXPECT_EQ(t.lower, lower);
  EXPECT_EQ(t.upper, upper);
}

const double kPiF = 3.141590118408203;

}  // namespace

TEST(MvrReaderStruct, readsEveryStructField) {
  const mv::MvrComponent c = component(
      "Name \"Tree\"\nPhoto_Dir Z\nPhoto_Mode Other\nPhoto {0.5,-2,2}\nExistence 2,7\nHide\n"
      "Reference\nChildren {\n\"B\"\n\"A\"\n}\nSwitch {\n0xfffe\n}\nTransform {\n"
      "Translation {1,-50,50} {2,-50,50} {3,-50,50}\n}\n");
  EXPECT_EQ(c.name, "Tree");
  EXPECT_EQ(c.photoDir, "Z");
  EXPECT_EQ(c.photoMode, "Other");
  expectTriple(c.photo, 0.5, -2, 2);
  expectRange(c.existence, 2, 7, "id", 0, 1);
  EXPECT_TRUE(c.hide);
  EXPECT_TRUE(c.reference);
  EXPECT_EQ(c.children, (std::set<std::string>{"A", "B"}));
  EXPECT_EQ(c.switchMasks, std::vector<std::uint16_t>{0xfffe});
  expectNear(c.transform.translation.value, {1, 2, 3}, 0);
  expectNear(c.transform.scale.value, {1, 1, 1}, 0);  // an absent line keeps its default
}

TEST(MvrReaderStruct, keywordsAreCaseSensitiveAndTheLastValueWins) {
  const mv::MvrComponent c = component("name \"x\"\nName \"a\"\n Name \"b\"\nName \"c\"\n");
  EXPECT_EQ(c.name, "c");
}

TEST(MvrReaderPrimitive, readsLinesAndSubBlocks) {
  const mv::MvrPrimitive p =
      component(
          "Primitive {\nType \"Tube\"\nPoints 6.7\nSeparator TRUE\nDeformable FALSE\n"
          "Resolution 3\nDisplace 1,2,\"sin\"\nColor \"red\"\nTexture \"bark\"\n"
          "Texture_File \"None\"\nTexture_ScaleS {2,0,10}\nTexture_ShiftT {0.5,-10,10}\n"
          "Alpha {0.25,0,1}\nAttractor_Mode 3\nUse_GFXColor\nFlat\nApplyProfil\nApplyProfil3D\n"
          "Transform {\nScale {2,0,20} {3,0,20} {4,0,20}\n}\nProfil {\nSize 2\n0,0,0\n1,2,3\n}\n"
          "GFXColor {\nAMBIENT 0.2,0.3,0.4\nDIFFUSE 1,1,1\nEMISSION 0.5,0,0\nALPHA 0.5\n}\n}\n")
          .primitive;
  EXPECT_EQ(p.type, "Tube");
  EXPECT_EQ(p.points, 6.7);
  EXPECT_TRUE(p.separator);
  EXPECT_FALSE(p.deformable);
  EXPECT_EQ(p.resolution, 3);
  expectRange(p.displace, 1, 2, "sin", -0.5, 0.5);
  EXPECT_EQ(p.color, "red");
  EXPECT_EQ(p.texture, "bark");
  EXPECT_EQ(p.textureFile, "None");
  EXPECT_EQ(p.textureScaleS.value, 2);
  EXPECT_EQ(p.textureShiftT.value, 0.5);
  EXPECT_EQ(p.alpha.value, 0.25);
  EXPECT_EQ(p.attractorMode, 3);
  EXPECT_TRUE(p.useGfxColor && p.flat && p.applyProfil && p.applyProfil3D);
  expectNear(p.transform.scale.value, {2, 3, 4}, 0);
  ASSERT_EQ(p.profil.size(), 2u);
  expectNear(p.profil[1], {1, 2, 3}, 0);
  EXPECT_EQ(p.ambient, mv::MvrColor(0.2f, 0.3f, 0.4f));
  EXPECT_EQ(p.diffuse, mv::MvrColor(1, 1, 1));
  EXPECT_EQ(p.emission, mv::MvrColor(0.5f, 0, 0));
  EXPECT_EQ(p.gfxAlpha, 0.5);
}

TEST(MvrReaderPrimitive, textureModeSwitchesTheHandlerOff) {
  EXPECT_EQ(
      component("Primitive {\nTexture_Handler 1\nTexture_Mode 1\n}\n").primitive.textureHandler, 0);
  EXPECT_EQ(component("Primitive {\nTexture_Mode\nTexture_Handler 1\n}\n").primitive.textureHandler,
            1);
}

TEST(MvrReaderTypeBlock, segmentsDependOnTheType) {
  expectTriple(component("Tree {\nSegments 12\n}\n").typeData.segments, 12, 12, 12);
  expectTriple(component("Leaf {\nSegments 12\n}\n").typeData.segments, 0, 0, 0);
  expectTriple(component("Leaf {\nSegments {10,1,100}\n}\n").typeData.segments, 10, 1, 100);
}

TEST(MvrReaderTypeBlock, shapeAndDenseLinesAreIgnoredInATree) {
  const mv::MvrComponent tree = component("Tree {\nShape 0,1,\"id\",0,1\nDense 1,1\n}\n");
  expectRange(tree.typeData.shape, 0, 1.5700000524520874, "cos", -kPiF, kPiF);
  EXPECT_EQ(tree.typeData.dense.start, 0);
  const mv::MvrComponent horn = component("Horn {\nShape 0,1,\"id\",0,1\nDense 1,1\n}\n");
  expectRange(horn.typeData.shape, 0, 1, "id", 0, 1);
  EXPECT_EQ(horn.typeData.dense.start, 1);
  for (const char* type : {"Tree", "Horn", "Leaf"}) {
    const mv::MvrComponent c =
        component(std::string(type) + " {\nShape {\nSize 2\n0,1,0\n1,0.5,0\n}\n}\n");
    ASSERT_EQ(c.typeData.shapeKnots.size(), 2u) << type;
    EXPECT_EQ(c.typeData.shapeKnots[1].y, 0.5);
  }
}

TEST(MvrReaderTypeBlock, scaleIsARangeInTheHornGroupAndRowsElsewhere) {
  for (const char* type : {"Horn", "PhiBall", "Hydra"}) {
    const mv::MvrComponent c = component(std::string(type) + " {\nScale 2,3,\"sin\",0,4\n}\n");
    expectRange(c.typeData.scaleRange, 2, 3, "sin", 0, 4);
    expectNear(c.typeData.scaleRows.value, {1, 1, 1}, 0);
  }
  const mv::MvrComponent tree = component("Tree {\nScale {1,0,10} {2,0,10} {3,0,10}\n}\n");
  expectNear(tree.typeData.scaleRows.value, {1, 2, 3}, 0);
  expectRange(tree.typeData.scaleRange, 1, 1, "id", 0, 5);
}

TEST(MvrReaderTypeBlock, readsRangesTriplesAndKnotLists) {
  const mv::MvrTypeData d =
      component(
          "Tree {\nTop FALSE\nSteps 2,3\nFlap 1\nRotX 0.1,0.2\nTwist 0,1,\"sin\"\nSmooth\n"
          "ApplyShape\nMoveScale 7\nLen {3,0,9}\nSpline\nPairs 2\nBranch_Num {4,1,9}\n"
          "Version 5\nNumber {12,1,500}\nTranslation {3,0,10}\nMethod 2\nSeparator TRUE\n"
          "Knots {\nSize 2\n0,0,0\n0,0,5\n}\nBranchiness {\nSize 1\n0,1,0\n}\n"
          "Angle {\nSize 1\n0,0.3,0\n}\nScale {\nSize 2\n0,1,0\n1,0.2,0\n}\n"
          "Patch_Points {\nSize 1\n1,2,3\n}\nUnknown {\nx 1\n}\n}\n")
          .typeData;
  EXPECT_FALSE(d.top);
  expectRange(d.steps, 2, 3, "id", 1, 200);
  EXPECT_EQ(d.flap.start, 1);
  EXPECT_EQ(d.rotX.end, 0.2);
  EXPECT_EQ(d.twist.function, "sin");
  EXPECT_TRUE(d.smooth && d.applyShape && d.spline && d.separator);
  EXPECT_EQ(d.moveScale, 7);
  expectTriple(d.length, 3, 0, 9);
  EXPECT_EQ(d.pairs, 2);
  EXPECT_EQ(d.branchNum.value, 4);
  EXPECT_EQ(d.version, 5);
  EXPECT_EQ(d.number.value, 12);
  EXPECT_EQ(d.translation.value, 3);
  EXPECT_EQ(d.method, 2);
  ASSERT_EQ(d.knots.size(), 2u);
  EXPECT_EQ(d.knots[1].z, 5);
  EXPECT_EQ(d.branchiness.size(), 1u);
  EXPECT_EQ(d.angleKnots.size(), 1u);
  EXPECT_EQ(d.scaleKnots.size(), 2u);
  EXPECT_EQ(d.patchPoints.size(), 1u);
}

TEST(MvrReaderTypeBlock, ribsAndBranchesFillOneSetAndTypeBlocksMerge) {
  const mv::MvrComponent c = component(
      "Horn {\nBranches {\n\"b\"\n}\nSegments 5\n}\nTree {\nRibs {\n\"a\"\n\"b\"\n}\n}\n"
      "Unknown {\n}\n");
  EXPECT_EQ(c.type, "Tree");
  EXPECT_EQ(c.typeData.branches, (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(c.typeData.segments.value, 5);
}

TEST(MvrReaderScan, usualNestingWithFrames) {
  std::vector<int> frames;
  const auto keyFrames = scan(
      "Queue {\nFrames 100\nUnit {\nFrames 5\nEntity {\nKeySequence {\nKeyFrame {\n"
      "Name \"Start\"\nTime 0.50\nModel {\nStruct {\nName \"A\"\n}\nStruct "
      "{\n}\n}\n}\n}\n}\n}\n}\n",
      &frames);
  EXPECT_EQ(frames, std::vector<int>{100});  // only a Queue's lines count
  ASSERT_EQ(keyFrames.size(), 1u);
  const mv::MvrKeyFrame& k = keyFrames.begin()->second;
  EXPECT_EQ(k.name, "Start");
  EXPECT_EQ(k.time, 0.5);
  EXPECT_EQ(k.timeText, "0.50");
  ASSERT_EQ(k.components.size(), 2u);
  EXPECT_EQ(k.components.count(""), 1u);  // a Struct without a Name is kept under ""
  EXPECT_EQ(k.components.at("A").name, "A");
}

TEST(MvrReaderScan, keyFramesByTimeAndEqualTimesReplace) {
  const auto keyFrames = scan(
      "KeyFrame {\nName \"late\"\nTime 2\n}\nKeyFrame {\nName \"first\"\n}\n"
      "KeyFrame {\nName \"second\"\nTime 0\n}\n");
  ASSERT_EQ(keyFrames.size(), 2u);
  EXPECT_EQ(keyFrames.begin()->second.name, "second");
  EXPECT_EQ(keyFrames.rbegin()->second.name, "late");
}

TEST(MvrReaderScan, bareModelBlocksAndSkippedBlocks) {
  const auto keyFrames = scan(
      "Unit {\nModel {\nStruct {\nName \"M\"\n}\n}\n}\nOther {\nKeyFrame {\nTime 3\n}\n}\n"
      "Struct {\nName \"outside\"\n}\n");
  ASSERT_EQ(keyFrames.size(), 1u);
  const mv::MvrKeyFrame& k = keyFrames.at(0.0);
  EXPECT_EQ(k.name, "Key 1");
  EXPECT_EQ(k.timeText, "0");
  EXPECT_EQ(k.components.count("M"), 1u);
  EXPECT_EQ(k.components.count("outside"), 0u);
}

TEST(MvrReaderScan, laterStructOfTheSameNameReplaces) {
  const auto keyFrames =
      scan("Model {\nStruct {\nName \"A\"\nHide\n}\nStruct {\nName \"A\"\nTree {\n}\n}\n}\n");
  const mv::MvrComponent& a = keyFrames.at(0.0).components.at("A");
  EXPECT_EQ(a.type, "Tree");
  EXPECT_FALSE(a.hide);
}

TEST(MvrReaderScan, deeplyRepeatedStructureBlocksNeedNoRecursion) {
  std::string text;
  const int depth = 100000;
  for (int i = 0; i < depth; ++i) text += "Unit {\n";
  text += "Model {\nStruct {\nName \"deep\"\n}\n}\n";
  const auto keyFrames = scan(text);
  EXPECT_EQ(keyFrames.at(0.0).components.count("deep"), 1u);
}
