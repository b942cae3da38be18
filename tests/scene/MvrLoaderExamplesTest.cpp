#include <gtest/gtest.h>

#include "SceneLoadSupport.h"
#include "support/CapturingMessageHandler.h"

namespace {

std::vector<CallRow> rowsOfExample(const std::string& name) {
  CapturingMessageHandler quiet;
  RecordedLoad load;
  loadText(load, exampleText(name));
  EXPECT_TRUE(load.result) << name;
  EXPECT_TRUE(quiet.errors.empty()) << name;
  EXPECT_TRUE(quiet.warnings.empty()) << name;
  return load.rows();
}

}  // namespace

TEST(MvrLoaderExamples, oakBuildsTrunkBoughAndLeafWithTheirMaterials) {
  const std::vector<CallRow> expected{
      {"createClassicSimple", "Camera", ""},
      {"createCircle", "Oak_Tube", ""},
      {"createClassicTree", "Oak", "Oak_Tube"},
      {"addMaterial", "Oak", ""},
      {"createCircle", "Bough_Tube", ""},
      {"createClassicTree", "Bough", "Bough_Tube"},
      {"createSpline", "Leaf_Area", ""},
      {"createClassicLeaf", "Leaf", "Leaf_Area"},
      {"addMaterial", "Leaf", ""},
      {"insertUnder", "Leaf", "Bough"},
      {"insertUnder", "Bough", "Oak"},
      {"insertUnder", "Oak", "Camera"},
      {"insertUnder", "Camera", ""},
  };
  EXPECT_EQ(rowsOfExample("oak.mvr"), expected);
}

TEST(MvrLoaderExamples, hornLinksItsRibThroughASwitchAndItsTipAsSpecialChild) {
  const std::vector<CallRow> expected{
      {"createClassicSimple", "Camera", ""},
      {"createCircle", "Horn_Tube", ""},
      {"createClassicHorn", "Horn", "Horn_Tube"},
      {"addMaterial", "Horn", ""},
      {"createCone", "Tip_Cone", ""},
      {"createClassicSimple", "Tip", ""},
      {"insertUnder", "Tip_Cone", "Tip"},
      {"createCylinder", "Ring_Cylinder", ""},
      {"createClassicSimple", "Ring", ""},
      {"insertUnder", "Ring_Cylinder", "Ring"},
      {"createVariation", "Switch_0", ""},
      {"insertUnder", "Switch_0", "Horn"},
      {"insertUnder", "Ring", "Switch_0"},
      {"createClassicSimple", "Switch_0_Null", ""},
      {"insertUnder", "Switch_0_Null", "Switch_0"},
      {"insertUnder", "Tip", "Horn"},
      {"insertUnder", "Horn", "Camera"},
      {"insertUnder", "Camera", ""},
  };
  EXPECT_EQ(rowsOfExample("horn.mvr"), expected);
}

TEST(MvrLoaderExamples, hydraGathersItsTwoChildrenBehindAStandardLink) {
  const std::vector<CallRow> expected{
      {"createClassicSimple", "Camera", ""},
      {"createClassicHydra", "Rosette", ""},
      {"createPlane", "Blade_Square", ""},
      {"createClassicSimple", "Blade", ""},
      {"addMaterial", "Blade", ""},
      {"insertUnder", "Blade_Square", "Blade"},
      {"createCircle", "Stem_Tube", ""},
      {"createClassicLeaf", "Stem", "Stem_Tube"},
      {"createClassicSimple", "Standard_Link", ""},
      {"insertUnder", "Blade", "Standard_Link"},
      {"insertUnder", "Stem", "Standard_Link"},
      {"insertUnder", "Standard_Link", "Rosette"},
      {"insertUnder", "Rosette", "Camera"},
      {"insertUnder", "Camera", ""},
  };
  EXPECT_EQ(rowsOfExample("hydra.mvr"), expected);
}

TEST(MvrLoaderExamples, sunflowerHeadIsAPhiballWithAWreathOfPetals) {
  const std::vector<CallRow> expected{
      {"createClassicSimple", "Camera", ""},
      {"createCircle", "Stalk_Tube", ""},
      {"createClassicHorn", "Stalk", "Stalk_Tube"},
      {"createSphere", "Head_Sphere", ""},
      {"createClassicPhiball", "Head", ""},
      {"addMaterial", "Head", ""},
      {"createClassicWreath", "Petals", ""},
      {"createPlane", "Petal_Triangle1", ""},
      {"createClassicSimple", "Petal", ""},
      {"addMaterial", "Petal", ""},
      {"insertUnder", "Petal_Triangle1", "Petal"},
      {"insertUnder", "Petal", "Petals"},
      {"insertUnder", "Head_Sphere", "Head"},
      {"insertUnder", "Petals", "Head"},
      {"createClassicSimple", "Standard_Link", ""},
      {"insertUnder", "Standard_Link", "Stalk"},
      {"insertUnder", "Head", "Stalk"},
      {"insertUnder", "Stalk", "Camera"},
      {"insertUnder", "Camera", ""},
  };
  EXPECT_EQ(rowsOfExample("sunflower.mvr"), expected);
}

TEST(MvrLoaderExamples, potUsesTheEarliestKeyFrameAndEveryOtherObjectKind) {
  const std::vector<CallRow> expected{
      {"createClassicSimple", "Camera", ""},
      {"createDisk", "Ground_Circle", ""},
      {"createClassicHyperpatch", "Ground", ""},
      {"createCircle", "Pot_Tube", ""},
      {"createClassicRevo", "Pot", "Pot_Tube"},
      {"addMaterial", "Pot", ""},
      {"createSpline", "Cactus_Tube", ""},
      {"createClassicHorn", "Cactus", "Cactus_Tube"},
      {"createBox", "Spines_Box", ""},
      {"createClassicSimple", "Spines", ""},
      {"insertUnder", "Spines_Box", "Spines"},
      {"createClassicSimple", "Standard_Link", ""},
      {"insertUnder", "Standard_Link", "Cactus"},
      {"insertUnder", "Spines", "Cactus"},
      {"insertUnder", "Cactus", "Pot"},
      {"createAttractorPrim", "Shears_Attractor", ""},
      {"createClassicPruning", "Shears", ""},
      {"insertUnder", "Shears_Attractor", "Shears"},
      {"insertUnder", "Ground", "Camera"},
      {"insertUnder", "Pot", "Camera"},
      {"insertUnder", "Shears", "Camera"},
      {"insertUnder", "Camera", ""},
  };
  EXPECT_EQ(rowsOfExample("pot.mvr"), expected);
}

TEST(MvrLoaderExamples, crlfEndingsLoadExactlyAsLineFeeds) {
  for (const char* name : {"oak.mvr", "horn.mvr", "hydra.mvr", "sunflower.mvr", "pot.mvr"}) {
    const std::string lf = exampleText(name);
    std::string crlf;
    for (char c : lf) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    CapturingMessageHandler quiet;
    RecordedLoad a, b;
    loadText(a, lf);
    loadText(b, crlf);
    EXPECT_EQ(a.rows(), b.rows()) << name;
    ASSERT_EQ(a.loader.calls.size(), b.loader.calls.size());
    for (std::size_t i = 0; i < a.loader.calls.size(); ++i)
      EXPECT_EQ(mv::MvrRecordingLoader::describe(a.loader.calls[i]),
                mv::MvrRecordingLoader::describe(b.loader.calls[i]));
  }
}

TEST(MvrLoaderExamples, mainArgumentsOfTheOak) {
  CapturingMessageHandler quiet;
  RecordedLoad load;
  loadText(load, exampleText("oak.mvr"));
  const mv::MvrCall* oak = load.created("Oak");
  ASSERT_NE(oak, nullptr);
  EXPECT_FALSE(oak->header.hidden);
  EXPECT_EQ(oak->value("segments"), 24);
  EXPECT_EQ(oak->value("length"), 6);
  EXPECT_EQ(oak->value("branchNum"), 12);
  EXPECT_EQ(oak->value("pairs"), 1);
  // Angle knots times pi, screw knots (flat) times 3.2360678.
  EXPECT_NEAR(oak->curves.at("angle").evaluateCurve(0), 0.35 * M_PI, 1e-12);
  EXPECT_NEAR(oak->curves.at("screw").evaluateCurve(0.3), 0.5 * 3.2360678, 1e-12);
  const mv::MvrCall* leafMaterial = load.loader.callsOf("addMaterial").at(1);
  EXPECT_EQ(leafMaterial->text, "Leaf_green");
  EXPECT_EQ(leafMaterial->value("index"), 2);
  EXPECT_DOUBLE_EQ(leafMaterial->value("scaleT"), -1.0 / 8);  // one texture per leaf segment
  ASSERT_EQ(load.loader.materials.size(), 3u);
  EXPECT_EQ(load.loader.materials[1].textureFile, "textures/bark.png");
  EXPECT_EQ(load.loader.materials[1].diffuse, mv::MvrColor(0.45f, 0.3f, 0.2f));
  EXPECT_EQ(load.loader.materials[2].diffuse, mv::MvrColor(0.2f, 0.6f, 0.15f));
  EXPECT_EQ(load.loader.callsOf("setFrames").at(0)->value("frames"), 50);
  EXPECT_FLOAT_EQ(load.loader.callsOf("setBackground").at(0)->value("red"), 230 / 255.0f);
}
