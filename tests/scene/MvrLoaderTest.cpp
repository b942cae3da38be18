#include <gtest/gtest.h>

#include <algorithm>

#include "SceneLoadSupport.h"
#include "core/ProgressSink.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"

namespace {

bool hasRow(const RecordedLoad& load, const CallRow& row) {
  const auto rows = load.rows();
  return std::find(rows.begin(), rows.end(), row) != rows.end();
}

class CancellingProgress : public mv::ProgressHandler {
 public:
  void start() override {}
  void finish() override { ++finished; }
  void spin() override {}
  void setProgress(double value) override { values.push_back(value); }
  bool isCancelled() override { return cancel; }
  bool cancel = false;
  int finished = 0;
  std::vector<double> values;
};

}  // namespace

TEST(MvrLoaderRoots, everyUnlinkedComponentIsARootInNameOrder) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load,
           sceneOf(structOf("B") + structOf("A", nameList({"C", "Missing"})) + structOf("C")));
  EXPECT_TRUE(load.result);
  const std::vector<CallRow> expected{
      {"createClassicSimple", "A", ""}, {"createClassicSimple", "C", ""}, {"insertUnder", "C", "A"},
      {"insertUnder", "A", ""},         {"createClassicSimple", "B", ""}, {"insertUnder", "B", ""}};
  EXPECT_EQ(load.rows(), expected);
  EXPECT_EQ(messages.prints, std::vector<std::string>{"Morvo File Version : 0.93"});
}

TEST(MvrLoaderRoots, onlyWhatHangsBelowACameraIsVisible) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load,
           sceneOf(structOf("Cam", "Camera {\n}\n" + nameList({"Shown", "Hidden"})) +
                   structOf("Shown", nameList({"Deep"})) + structOf("Hidden", "Hide\n") +
                   structOf("Deep") + structOf("Other", nameList({"Below"})) + structOf("Below")));
  EXPECT_FALSE(load.created("Cam")->header.hidden);
  EXPECT_FALSE(load.created("Shown")->header.hidden);
  EXPECT_FALSE(load.created("Deep")->header.hidden);
  EXPECT_TRUE(load.created("Hidden")->header.hidden);
  EXPECT_TRUE(load.created("Other")->header.hidden);
  EXPECT_TRUE(load.created("Below")->header.hidden);
}

TEST(MvrLoaderRoots, aCycleWithoutAnyOtherRootFails) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("A", nameList({"B"})) + structOf("B", nameList({"A"}))));
  EXPECT_FALSE(load.result);
  EXPECT_EQ(messages.errors, std::vector<std::string>{"IMPORT: No Root Object(s) found!"});
  EXPECT_TRUE(load.loader.calls.empty());
}

TEST(MvrLoaderRoots, cyclesBelowARootAreReportedAndNotLinked) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("Root", nameList({"A"})) + structOf("A", nameList({"A", "B"})) +
                         structOf("B", nameList({"A"}))));
  EXPECT_TRUE(load.result);
  ASSERT_EQ(messages.errors.size(), 2u);
  EXPECT_EQ(messages.errors[0], "Link cycle: \"A\" is linked below itself");
  EXPECT_FALSE(hasRow(load, {"insertUnder", "A", "A"}));
  EXPECT_FALSE(hasRow(load, {"insertUnder", "A", "B"}));
  EXPECT_TRUE(hasRow(load, {"insertUnder", "B", "A"}));
  EXPECT_TRUE(hasRow(load, {"insertUnder", "A", "Root"}));
}

TEST(MvrLoaderRoots, emptyOrKeyFramelessFilesFail) {
  CapturingMessageHandler messages;
  RecordedLoad empty, noModel;
  loadText(empty, "");
  loadText(noModel, "Version 0.93\nQueue {\nFrames 3\n}\n");
  EXPECT_FALSE(empty.result);
  EXPECT_FALSE(noModel.result);
  EXPECT_EQ(noModel.count("setFrames"), 1);
  EXPECT_TRUE(messages.errors.empty());
}

TEST(MvrLoaderLinks, sharedComponentIsCreatedOnceAndInsertedTwice) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("Root", nameList({"P", "Q"})) + structOf("P", nameList({"S"})) +
                         structOf("Q", nameList({"S"})) + structOf("S")));
  EXPECT_EQ(load.count("createClassicSimple"), 4);
  EXPECT_TRUE(hasRow(load, {"insertUnder", "S", "P"}));
  EXPECT_TRUE(hasRow(load, {"insertUnder", "S", "Q"}));
}

TEST(MvrLoaderLinks, treeLinkNodesFollowTheCountsOfStandardAndSpecialNames) {
  struct Row {
    std::string body;
    std::vector<CallRow> links;  // the insertUnder rows under "T" and the link nodes
  };
  const std::string tree = "Tree {\n";
  const Row rows[] = {
      {tree + nameList({"X"}, "Branches") + "}\n", {{"insertUnder", "X", "T"}}},
      {tree + nameList({"X", "Y"}, "Branches") + "}\n",
       {{"insertUnder", "X", "Standard_Link"},
        {"insertUnder", "Y", "Standard_Link"},
        {"insertUnder", "Standard_Link", "T"}}},
      {tree + "}\n" + nameList({"X"}),
       {{"insertUnder", "Standard_Link", "T"}, {"insertUnder", "X", "T"}}},
      {tree + "}\n" + nameList({"X", "Y"}),
       {{"insertUnder", "Standard_Link", "T"},
        {"insertUnder", "X", "Special_Link"},
        {"insertUnder", "Y", "Special_Link"},
        {"insertUnder", "Special_Link", "T"}}},
  };
  for (const Row& row : rows) {
    CapturingMessageHandler messages;
    RecordedLoad load;
    loadText(load, sceneOf(structOf("T", row.body) + structOf("X") + structOf("Y")));
    std::vector<CallRow> links;
    for (const CallRow& call : load.rows())
      if (call[0] == "insertUnder" && call[2] != "") links.push_back(call);
    EXPECT_EQ(links, row.links) << row.body;
  }
}

TEST(MvrLoaderLinks, branchesOfATypeWithoutBranchesFailTheObject) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load,
           sceneOf(structOf("H", "Hydra {\n" + nameList({"X"}, "Ribs") + "}\n") + structOf("X")));
  EXPECT_FALSE(load.result);
  EXPECT_EQ(messages.errors,
            std::vector<std::string>{"Found Branch/Rib Link in non Tree/Horn Object \"H\""});
}

TEST(MvrLoaderLinks, switchMasksWrapTheChildOncePerClearBit) {
  CapturingMessageHandler messages;
  RecordedLoad all, one;
  loadText(all, sceneOf(structOf("P", nameList({"C"})) + structOf("C", "Switch {\n0xffff\n}\n")));
  EXPECT_EQ(all.count("createVariation"), 0);
  EXPECT_TRUE(hasRow(all, {"insertUnder", "C", "P"}));
  loadText(one,
           sceneOf(structOf("P", nameList({"C"})) + structOf("C", "Switch {\n0xfffe,0xffdf\n}\n")));
  const std::vector<CallRow> expected{
      {"createClassicSimple", "P", ""},
      {"createClassicSimple", "C", ""},
      {"createVariation", "Switch_0", ""},
      {"insertUnder", "Switch_0", "P"},
      {"createVariation", "Switch_21", ""},
      {"insertUnder", "Switch_21", "Switch_0"},
      {"insertUnder", "C", "Switch_21"},
      {"createClassicSimple", "Switch_21_Null", ""},
      {"insertUnder", "Switch_21_Null", "Switch_21"},
      {"createClassicSimple", "Switch_0_Null", ""},
      {"insertUnder", "Switch_0_Null", "Switch_0"},
      {"insertUnder", "P", ""},
  };
  EXPECT_EQ(one.rows(), expected);
  const mv::MvrCall* variation = one.created("Switch_21");
  EXPECT_EQ(variation->value("kind"), 3);
  EXPECT_EQ(variation->value("seed"), 4357);
  EXPECT_EQ(variation->value("index"), 21);
}

TEST(MvrLoaderTypes, objectKindsFollowTypeAndPrimitive) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("Root", nameList({"Revo", "Leaf", "Odd"})) +
                         structOf("Revo", "Primitive {\nType \"Box\"\n}\nRevo {\n}\n") +
                         structOf("Leaf", "Primitive {\nType \"Square\"\n}\nLeaf {\n}\n") +
                         structOf("Odd", "Primitive {\nType \"Torus\"\n}\n")));
  EXPECT_TRUE(load.result);
  EXPECT_EQ(load.created("Revo")->operation, "createClassicSimple");
  EXPECT_NE(
      std::find(messages.debugs.begin(), messages.debugs.end(), "Unknown Component Type Revo"),
      messages.debugs.end());
  EXPECT_FALSE(hasRow(load, {"insertUnder", "Revo_Box", "Revo"}));  // no extra name for Revo
  EXPECT_EQ(load.created("Leaf")->operation, "createClassicSimple");
  EXPECT_TRUE(hasRow(load, {"insertUnder", "Leaf_Square", "Leaf"}));
  EXPECT_EQ(load.created("Leaf_Square")->value("facing"), 3);
  EXPECT_EQ(load.created("Odd_Torus"), nullptr);  // unknown primitives make nothing
  EXPECT_EQ(load.created("Odd")->header.primitiveType, "Torus");
  EXPECT_TRUE(load.created("Odd")->header.solid);
}

TEST(MvrLoaderTypes, primitivesTakeUnitAndResolution) {
  CapturingMessageHandler messages;
  const char* kinds[] = {"Circle", "Box", "Sphere", "Cylinder", "Cone", "Square", "Tube"};
  std::string structs;
  for (const char* kind : kinds)
    structs += structOf(
        kind, "Primitive {\nType \"" + std::string(kind) + "\"\nResolution 3.6\nPoints 5.9\n}\n");
  RecordedLoad load;
  loadText(load, sceneOf(structs), 10);
  EXPECT_EQ(load.created("Circle_Circle")->value("radius"), 5);
  EXPECT_EQ(load.created("Circle_Circle")->value("resolution"), 3);
  EXPECT_EQ(load.created("Box_Box")->value("size"), 10);
  EXPECT_EQ(load.created("Sphere_Sphere")->value("radius"), 5);
  EXPECT_EQ(load.created("Cylinder_Cylinder")->value("height"), 10);
  const mv::MvrCall* cone = load.created("Cone_Cone");
  EXPECT_EQ(cone->value("slices"), 8);
  EXPECT_EQ(cone->value("stacks"), 3);
  EXPECT_EQ(cone->value("third"), 2);
  EXPECT_EQ(load.created("Square_Square")->value("facing"), 4);
  EXPECT_EQ(load.created("Tube_Tube")->value("points"), 5);
  expectNear(load.created("Box_Box")->header.matrix, mv::Matrix4::rotationZ(M_PI));
}

TEST(MvrLoaderTransform, objectMatrixIsScaleRotationsThenScaledTranslation) {
  const mv::Matrix4 m = mv::MvrLoader::makeTransform({1, 2, 3}, {0.1, 0.2, 0.3}, {2, 3, 4}, 10);
  const mv::Matrix4 expected = mv::Matrix4::scaling({2, 3, 4}) * mv::Matrix4::rotationX(-0.1) *
                               mv::Matrix4::rotationY(0.2) * mv::Matrix4::rotationZ(-0.3) *
                               mv::Matrix4::translation({10, 20, 30});
  expectNear(m, expected);
  // The point (1, 0, 0) is scaled to (2, 0, 0) before it turns and moves.
  expectNear(
      mv::MvrLoader::makeTransform({1, 2, 3}, {0, 0, 0}, {2, 3, 4}, 10).transformPoint({1, 0, 0}),
      {12, 20, 30});
}

TEST(MvrLoaderTransform, treeTurnsByItsVersion) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load,
           sceneOf(structOf("Old", "Tree {\nVersion 5\n}\n") + structOf("New", "Tree {\n}\n")));
  expectNear(load.created("Old")->header.matrix, mv::Matrix4::rotationZ(M_PI));
  expectNear(load.created("New")->header.matrix, mv::Matrix4::rotationZ(-M_PI / 2));
}

TEST(MvrLoaderHeader, carriesPhotoExistenceAndPrimitiveFields) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("A",
                                  "Photo_Dir X\nPhoto {0.7,-1,1}\nExistence 0.2,0.8\n"
                                  "Switch {\n0x00ff\n}\nPrimitive {\nType \"Box\"\nFlat\n"
                                  "Attractor_Mode 2\nAttractor_Strength {3,0,5}\n}\n") +
                         structOf("B", "Photo_Dir W\n")));
  const mv::MvrHeader& a = load.created("A")->header;
  EXPECT_EQ(a.photoAxis, 0);
  EXPECT_EQ(a.photoStrength, 0.7);
  EXPECT_EQ(a.existenceStart, 0.2);
  EXPECT_EQ(a.existenceEnd, 0.8);
  EXPECT_EQ(a.switchMasks, std::vector<std::uint16_t>{0x00ff});
  EXPECT_FALSE(a.solid);
  EXPECT_EQ(a.attractorMode, 2);
  EXPECT_EQ(a.attractorStrength, 3);
  EXPECT_EQ(load.created("B")->header.photoAxis, 1);
  EXPECT_FALSE(load.created("B")->header.solid);  // "Undefined" is never solid
}

TEST(MvrLoaderMaterials, textureFileNoneGivesATextureWithoutImage) {
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structOf("A",
                                  "Primitive {\nTexture_Handler 1\nTexture \"Moss\"\n"
                                  "Texture_File \"None\"\nTexture_ShiftS {0.25,-10,10}\n}\n"
                                  "Children {\n\"B\"\n}\n") +
                         structOf("B", "Primitive {\nUse_GFXColor\nColor \"red\"\n}\n")));
  ASSERT_EQ(load.loader.materials.size(), 3u);
  const mv::MvrMaterial& a = load.loader.materials[1];
  EXPECT_EQ(a.name, "A");
  EXPECT_EQ(a.texture, "Moss");
  EXPECT_EQ(a.textureFile, "");
  expectNear(a.textureOffset, {0.25, 0, 0});
  // B inherits A's texture and adds its colour.
  const mv::MvrMaterial& b = load.loader.materials[2];
  EXPECT_EQ(b.name, "B_red");
  EXPECT_EQ(b.texture, "Moss");
  EXPECT_EQ(b.diffuse, mv::MvrColor(0.5f, 0.5f, 0.5f));
  EXPECT_EQ(load.loader.callsOf("addMaterial").at(1)->value("index"), 2);
}

TEST(MvrLoaderWalk, deepChainsStopAtTheDepthLimitWithAMessage) {
  std::string structs;
  const int length = mv::MvrLoader::kMaxDepth + 20;
  for (int i = 0; i < length; ++i)
    structs += structOf("N" + std::to_string(1000 + i),
                        "Children {\n\"N" + std::to_string(1001 + i) + "\"\n}\n");
  CapturingMessageHandler messages;
  RecordedLoad load;
  loadText(load, sceneOf(structs));
  EXPECT_TRUE(load.result);
  EXPECT_EQ(load.count("createClassicSimple"), mv::MvrLoader::kMaxDepth + 1);
  ASSERT_EQ(messages.errors.size(), 1u);
  EXPECT_EQ(messages.errors[0], "Object tree deeper than 256 levels at \"N1257\"");
}

TEST(MvrLoaderWalk, cancellationFailsTheLoadAndEndsProgress) {
  CapturingMessageHandler messages;
  CancellingProgress progress;
  mv::progressSink.handler = &progress;
  RecordedLoad done, cancelled;
  loadText(done, sceneOf(structOf("A")));
  EXPECT_TRUE(done.result);
  EXPECT_EQ(progress.values, (std::vector<double>{0.0, 0.1, 1.0}));
  progress.cancel = true;
  loadText(cancelled, sceneOf(structOf("A")));
  mv::progressSink.handler = nullptr;
  EXPECT_FALSE(cancelled.result);
  EXPECT_EQ(progress.finished, 2);
}

TEST(MvrLoaderFiles, identifyAndMissingFiles) {
  mv::MvrRecordingLoader loader;
  EXPECT_TRUE(loader.identify("Version 0.93\nQueue", 18));
  EXPECT_FALSE(loader.identify("Version 0.9", 11));
  EXPECT_FALSE(loader.identify("Version 0.94", 12));
  CapturingMessageHandler messages;
  mv::ParameterSetData settings;
  EXPECT_FALSE(loader.load(settings, "Disk:no:such:file.mvr"));
  EXPECT_EQ(messages.debugs,
            (std::vector<std::string>{"/no/such/file.mvr", "The file can't be opened!!!"}));
  EXPECT_TRUE(loader.load(settings, std::string(MORVO_SOURCE_DIR) + "/examples/horn.mvr"));
}
