#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "core/MathConstants.h"
#include "curves/ParameterSetData.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/BaseObject.h"
#include "host/BaseTag.h"
#include "host/HostIds.h"
#include "host/PointObject.h"
#include "host/SplineObject.h"
#include "host/TextureTag.h"
#include "source/C4dMvrLoader.h"
#include "source/C4dParameterSet.h"
#include "source/MvrLoader.h"
#include "source/PluginIds.h"
#include "support/CapturingConsole.h"
#include "support/CapturingMessageHandler.h"
#include "support/TestOutput.h"

namespace {

std::string structOf(const std::string& name, const std::string& body = "") {
  return "Struct {\nName \"" + name + "\"\n" + body + "}\n";
}

std::string sceneOf(const std::string& structs) {
  return "Version 0.93\nQueue {\nKeyFrame {\nModel {\n" + structs + "}\n}\n}\n";
}

std::string writeScene(const std::string& fileName, const std::string& text) {
  const std::string path = testOutputPath(fileName);
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

std::vector<std::string> childNames(const BaseObject* object) {
  std::vector<std::string> names;
  for (const BaseObject* child = object->GetDown(); child; child = child->GetNext())
    names.push_back(child->GetName());
  return names;
}

std::vector<const BaseObject*> allObjects(const BaseObject* first) {
  std::vector<const BaseObject*> out;
  for (const BaseObject* object = first; object; object = object->GetNext()) {
    out.push_back(object);
    const auto below = allObjects(object->GetDown());
    out.insert(out.end(), below.begin(), below.end());
  }
  return out;
}

// A document with an import of the scene text through the scene loader, in the given mode.
struct Import {
  CapturingConsole console;
  CapturingMessageHandler messages;
  BaseDocument* document = BaseDocument::Alloc();
  BaseContainer settings;
  MvrLoader loader;
  Int32 result = -99;

  explicit Import(Int32 mode = MvrLoader::ModeGenerators) {
    MvrLoader::initSettings(settings);
    settings.SetLong(MvrLoader::IdImportMode, mode);
  }
  ~Import() { BaseDocument::Free(document); }
  Import& run(const std::string& fileName, const std::string& text,
              Int32 filter = SCENEFILTER_OBJECTS | SCENEFILTER_MATERIALS) {
    mv::ParameterSetData library;
    MvrLoader::copySettings(settings, library);
    const Filename file(writeScene(fileName, text));
    result = settings.GetLong(MvrLoader::IdImportMode) == MvrLoader::ModePolygons
                 ? MvrLoader::importPolygons(file, document, settings, library)
                 : MvrLoader::importGenerators(file, document, filter, settings, library);
    return *this;
  }
  const BaseObject* find(const std::string& name) const { return document->SearchObject(name); }
  int countNamed(const std::string& name) const {
    int count = 0;
    for (const BaseObject* object : allObjects(document->GetFirstObject()))
      count += object->GetName() == name;
    return count;
  }
};

const std::string kTube = "Primitive {\nType \"Tube\"\nPoints 8\n}\n";

}  // namespace

TEST(MvrGeneratorImport, aLeafLinkedFromTenBranchesStandsOnceAndNineTimesAsInstance) {
  std::string cameraChildren = "Children {\n";
  std::string trees;
  for (int i = 0; i < 10; ++i) {
    const std::string name = "T" + std::to_string(i);
    cameraChildren += "\"" + name + "\"\n";
    trees += structOf(name, kTube + "Tree {\nBranches {\n\"Leaf\"\n}\n}\n");
  }
  Import import;
  import.run("import-shared-leaf.mvr",
             sceneOf(structOf("Camera", "Camera {\n}\n" + cameraChildren + "}\n") + trees +
                     structOf("Leaf", kTube + "Leaf {\n}\n")));
  ASSERT_EQ(import.result, FILEERROR_NONE);
  EXPECT_EQ(import.countNamed("Leaf"), 1);
  EXPECT_EQ(import.countNamed("Leaf_Instance"), 9);
  const BaseObject* leaf = import.find("Leaf");
  ASSERT_TRUE(leaf);
  EXPECT_EQ(leaf->GetType(), ID_BRANCH_OBJECT);
  for (const BaseObject* object : allObjects(import.document->GetFirstObject())) {
    if (object->GetName() != "Leaf_Instance") continue;
    EXPECT_EQ(object->GetType(), Oinstance);
    EXPECT_EQ(object->GetDataInstance()->GetObjectLink(1001), leaf);
  }
}

TEST(MvrGeneratorImport, aTreeBecomesABranchWithProfilePathAndTropismInThatOrder) {
  Import import;
  import.run("import-tree.mvr",
             sceneOf(structOf("Camera", "Camera {\n}\nChildren {\n\"Oak\"\n}\n") +
                     structOf("Oak", kTube + "Tree {\nPairs 1\nBranch_Num {6,1,100}\n"
                                             "Phototropism {\nSize 3\n0,0,0\n0.5,0.5,0\n1,0,0\n}\n"
                                             "}\n")));
  ASSERT_EQ(import.result, FILEERROR_NONE);
  const BaseObject* oak = import.find("Oak");
  ASSERT_TRUE(oak);
  EXPECT_EQ(oak->GetType(), ID_BRANCH_OBJECT);
  EXPECT_EQ(childNames(oak), (std::vector<std::string>{"Oak_Tube", "Oak_Path"}));
  const BaseObject* path = oak->GetDown()->GetNext();
  EXPECT_EQ(path->GetType(), Ospline);
  EXPECT_EQ(childNames(path), std::vector<std::string>{"Oak_Tropism"});
  EXPECT_EQ(path->GetDown()->GetType(), ID_TROPISM_OBJECT);
  const BaseContainer* data = oak->GetDataInstance();
  EXPECT_EQ(data->GetLong(1308), 1);  // pairs 1: one node per whorl
  EXPECT_EQ(data->GetLong(1349), 2);
  EXPECT_EQ(data->GetLong(1005), 4);
  EXPECT_DOUBLE_EQ(data->GetReal(1301), 6.0);
  EXPECT_TRUE(data->GetBool(1302));
  BaseContainer copy = *data;
  const mv::CurveParam* flap = C4dParameterSet::curveIn(&copy, 1305);
  ASSERT_TRUE(flap);
  EXPECT_NEAR(flap->evaluate(0.5), mv::kPi / 2, 1e-12);
  // The camera is a visible null; what hangs below it is shown.
  EXPECT_EQ(import.find("Camera")->GetType(), Onull);
  EXPECT_EQ(oak->GetEditorMode(), MODE_UNDEF);
}

TEST(MvrGeneratorImport, aBranchWithoutProfileGetsANullInItsPlace) {
  Import import;
  import.run("import-horn.mvr", sceneOf(structOf("Horn", "Horn {\nSegments 5\n}\n")));
  ASSERT_EQ(import.result, FILEERROR_NONE);
  const BaseObject* horn = import.find("Horn");
  ASSERT_TRUE(horn);
  EXPECT_EQ(childNames(horn), (std::vector<std::string>{"Horn_Undefined", "Horn_Curvature"}));
  EXPECT_EQ(horn->GetDown()->GetType(), Onull);
  EXPECT_EQ(horn->GetDown()->GetNext()->GetType(), ID_CURVATURE_SPLINE);
  // Not below a camera: hidden in editor and render.
  EXPECT_EQ(horn->GetEditorMode(), MODE_OFF);
  EXPECT_EQ(horn->GetRenderMode(), MODE_OFF);
}

TEST(MvrGeneratorImport, nameClashesPutACounterBehindTheName) {
  BaseDocument* document = BaseDocument::Alloc();
  BaseContainer settings;
  MvrLoader::initSettings(settings);
  {
    C4dMvrLoader loader(Filename("x.mvr"), document, 0, &settings);
    const std::vector<std::string> made{loader.createNull(mv::MvrHeader("A")),
                                        loader.createNull(mv::MvrHeader("A")),
                                        loader.createNull(mv::MvrHeader("A"))};
    EXPECT_EQ(made, (std::vector<std::string>{"A", "A1", "A2"}));
    // The objects keep the name they were given.
    EXPECT_EQ(loader.objects.at("A2")->GetName(), "A");
    EXPECT_TRUE(loader.insertUnder("A1", ""));
    EXPECT_FALSE(loader.insertUnder("Missing", ""));
    EXPECT_FALSE(loader.insertUnder("A", "Missing"));
  }
  // Only the inserted object outlives the loader.
  EXPECT_EQ(allObjects(document->GetFirstObject()).size(), 1u);
  BaseDocument::Free(document);
}

TEST(MvrGeneratorImport, circlesAreNSidesUnlessFourDivideTheirPoints) {
  struct Row {
    Int32 circleMode;
    int points;
    Int32 type;
    Int32 intermediate;  // a circle's points between its four: points / 4 - 1, rounded
  };
  const Row rows[] = {{1, 6, Osplinenside, 0}, {1, 16, Osplinecircle, 3}, {2, 6, Osplinecircle, 1}};
  for (const Row& row : rows) {
    BaseContainer settings;
    MvrLoader::initSettings(settings);
    settings.SetLong(MvrLoader::IdCircleMode, row.circleMode);
    C4dMvrLoader loader(Filename("x.mvr"), nullptr, 0, &settings);
    const std::string made = loader.createCircle("C", mv::Matrix4(), 0.5, row.points);
    ASSERT_EQ(made, "C");
    const BaseObject* circle = loader.objects.at("C");
    EXPECT_EQ(circle->GetType(), row.type) << row.points;
    const BaseContainer* data = circle->GetDataInstance();
    if (row.type == Osplinenside) {
      EXPECT_EQ(data->GetLong(2131), row.points);
      EXPECT_DOUBLE_EQ(data->GetReal(2130), 0.5);
    } else {
      EXPECT_EQ(data->GetLong(1003), row.intermediate);
      EXPECT_EQ(data->GetLong(1001), 2);
      EXPECT_DOUBLE_EQ(data->GetReal(2012), 0.5);
    }
  }
}

TEST(MvrGeneratorImport, deformGridPointsTakeTheGridOrderInHostAxes) {
  BaseContainer settings;
  MvrLoader::initSettings(settings);
  C4dMvrLoader loader(Filename("x.mvr"), nullptr, 0, &settings);
  std::vector<mv::Vector3> lattice;
  for (int c = 0; c < 3; ++c)
    for (int b = 0; b < 3; ++b)
      for (int a = 0; a < 3; ++a) lattice.push_back({a / 2.0, b / 2.0, c / 2.0 + 0.1 * a});
  const std::string made = loader.createDeformGrid(mv::MvrHeader("Grid"), lattice);
  ASSERT_EQ(made, "Grid");
  const auto* grid = static_cast<const PointObject*>(loader.objects.at("Grid"));
  EXPECT_EQ(grid->GetType(), Offd);
  ASSERT_EQ(grid->GetPointCount(), 27);
  EXPECT_EQ(grid->GetDataInstance()->GetLong(1001), 3);
  // Grid point i + 3 j + 9 k is lattice entry i + 3 k + 9 j, centred and with y, z swapped.
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      for (int k = 0; k < 3; ++k) {
        const mv::Vector3& p = lattice[i + 3 * k + 9 * j];
        const Vector& q = grid->GetPointR()[i + 3 * j + 9 * k];
        EXPECT_DOUBLE_EQ(q.x, p.x - 0.5);
        EXPECT_DOUBLE_EQ(q.y, p.z - 0.5);
        EXPECT_DOUBLE_EQ(q.z, p.y - 0.5);
      }
    }
  }
}

TEST(MvrGeneratorImport, theDeformGridIsFittedToWhatStandsBelowIt) {
  Import import;
  std::string lattice = "HyperPatch {\nPatch_Points {\nSize 8\n";
  for (int i = 0; i < 8; ++i)
    lattice += std::to_string(i & 1) + "," + std::to_string((i >> 1) & 1) + "," +
               std::to_string((i >> 2) & 1) + "\n";
  lattice += "}\n}\nChildren {\n\"Block\"\n}\n";
  import.run("import-grid.mvr", sceneOf(structOf("Lean", lattice) +
                                        structOf("Block", "Primitive {\nType \"Box\"\n}\n")));
  ASSERT_EQ(import.result, FILEERROR_NONE);
  const BaseObject* grid = import.find("Lean");
  ASSERT_TRUE(grid);
  // The unit box of the scene is 100 wide at unit 100; the grid takes it with a margin.
  const Vector size = grid->GetDataInstance()->GetVector(1000);
  EXPECT_NEAR(size.x, 100.0002, 1e-6);
  EXPECT_EQ(size.x, size.y);
  EXPECT_EQ(size.x, size.z);
  EXPECT_NEAR(grid->GetMl().off.x, 0.0, 1e-6);
}

TEST(MvrGeneratorImport, aFileThatDoesNotLoadIsAFileError) {
  Import import;
  import.run("import-empty.mvr", "Version 0.93\n");
  EXPECT_EQ(import.result, FILEERROR_WRONG_VALUE);
  EXPECT_FALSE(import.document->GetFirstObject());
}

TEST(MvrImportMaterials, channelsFollowTheClassicColours) {
  BaseContainer settings;
  MvrLoader::initSettings(settings);
  struct Row {
    mv::MvrColor specular, emission;
    std::string texture;
    bool specularOn, luminanceOn, alphaOn;
  };
  const std::string bark = std::string(MORVO_SOURCE_DIR) + "/examples/textures/bark.png";
  const Row rows[] = {
      {{1, 1, 1}, {0, 0, 0}, "", false, false, false},
      {{0.5f, 0.5f, 0.5f}, {0, 0, 0}, "", true, false, false},
      {{1, 1, 1}, {0.2f, 0, 0}, "", false, true, false},
      // An image without alpha switches on no alpha channel.
      {{1, 1, 1}, {0, 0, 0}, bark, false, false, false},
  };
  for (const Row& row : rows) {
    mv::MvrMaterial material;
    material.name = "Oak_bark";
    material.specular = row.specular;
    material.emission = row.emission;
    material.textureFile = row.texture;
    BaseMaterial* host = C4dMvrLoader::makeHostMaterial(Filename("scene.mvr"), &settings, material);
    ASSERT_TRUE(host);
    EXPECT_EQ(host->GetName(), "Oak_bark");
    EXPECT_EQ(host->GetChannelState(CHANNEL_SPECULARCOLOR), row.specularOn);
    EXPECT_EQ(host->GetChannelState(CHANNEL_LUMINANCE), row.luminanceOn);
    EXPECT_EQ(host->GetChannelState(CHANNEL_ALPHA), row.alphaOn);
    const BaseContainer color = host->GetChannel(CHANNEL_COLOR)->GetData();
    EXPECT_NEAR(color.GetVector(CHANNEL_COLOR_VALUE).x, 0.6, 1e-6);
    EXPECT_EQ(color.GetString(CHANNEL_TEXTURE), row.texture);
    if (!row.texture.empty()) {
      EXPECT_EQ(color.GetLong(1006), 3);  // texture mix off
      EXPECT_EQ(color.GetLong(1005), 6);  // texture sampling off
    }
    BaseMaterial::Free(host);
  }
}

TEST(MvrImportMaterials, aTextureTagCarriesOffsetYAndScale) {
  BaseMaterial* material = BaseMaterial::Alloc(Mmaterial);
  TextureTag* tag = C4dMvrLoader::makeTextureTag(material, {5, 0.25, 0}, {2, -0.5, 1}, "Sel");
  ASSERT_TRUE(tag);
  EXPECT_EQ(tag->GetMaterial(), material);
  const BaseContainer* data = tag->GetDataInstance();
  EXPECT_DOUBLE_EQ(data->GetReal(1000), 0.0);
  EXPECT_DOUBLE_EQ(data->GetReal(1001), 0.25);
  EXPECT_DOUBLE_EQ(data->GetReal(1002), 2.0);
  EXPECT_DOUBLE_EQ(data->GetReal(1003), -0.5);
  EXPECT_EQ(data->GetLong(1004), 6);
  EXPECT_EQ(data->GetString(TEXTURETAG_RESTRICTION), "Sel");
  BaseTag* base = tag;
  BaseTag::Free(base);
  BaseMaterial::Free(material);
}

TEST(MvrImportMaterials, materialsComeOnlyWhenAskedFor) {
  const std::string scene =
      sceneOf(structOf("Box",
                       "Primitive {\nType \"Box\"\nUse_GFXColor\nColor \"red\"\n"
                       "GFXColor {\nDIFFUSE 1,0,0\n}\n}\n"));
  Import with, without;
  with.run("import-material.mvr", scene);
  without.run("import-no-material.mvr", scene, SCENEFILTER_OBJECTS);
  ASSERT_EQ(with.result, FILEERROR_NONE);
  ASSERT_EQ(without.result, FILEERROR_NONE);
  ASSERT_TRUE(with.document->GetFirstMaterial());
  EXPECT_EQ(with.document->GetFirstMaterial()->GetName(), "Box_red");
  EXPECT_TRUE(with.find("Box")->GetTag(Ttexture));
  EXPECT_FALSE(without.document->GetFirstMaterial());
  EXPECT_FALSE(without.find("Box")->GetTag(Ttexture));
}

TEST(MvrPolygonImport, theSceneLandsAsOnePolygonObjectWithItsMaterials) {
  Import import(MvrLoader::ModePolygons);
  import.run("import-polygons.mvr",
             sceneOf(structOf("Camera", "Camera {\n}\nChildren {\n\"Box\"\n}\n") +
                     structOf("Box",
                              "Primitive {\nType \"Box\"\nUse_GFXColor\nColor \"red\"\n"
                              "GFXColor {\nDIFFUSE 1,0,0\n}\n}\n")));
  ASSERT_EQ(import.result, FILEERROR_NONE);
  const BaseObject* object = import.document->GetFirstObject();
  ASSERT_TRUE(object);
  EXPECT_EQ(object->GetType(), Opolygon);
  EXPECT_EQ(object->GetName(), "import-polygons.mvr");
  EXPECT_FALSE(object->GetNext());
  EXPECT_TRUE(object->GetTag(Tphong));
  // The material's name, with its colour, names the selection and the restriction.
  const BaseTag* selection = object->GetTag(Tpolygonselection);
  ASSERT_TRUE(selection);
  EXPECT_EQ(selection->GetName(), "Box_red");
  const BaseTag* texture = object->GetTag(Ttexture);
  ASSERT_TRUE(texture);
  EXPECT_EQ(texture->GetDataInstance()->GetString(TEXTURETAG_RESTRICTION), "Box_red");
  ASSERT_TRUE(import.document->GetFirstMaterial());
  EXPECT_EQ(import.document->GetFirstMaterial()->GetName(), "Box_red");
}

TEST(MvrSceneLoader, identifiesClassicScenesBySuffixAndFirstBytes) {
  CapturingConsole console;
  MvrLoader loader;
  BaseList2D node(MvrLoader::kDescriptionId);
  MvrLoader::initSettings(*node.GetDataInstance());
  std::string good = "Version 0.93\nQueue {\n";
  std::string bad = "Version 0.92\nQueue {\n";
  auto* goodBytes = reinterpret_cast<UChar*>(good.data());
  EXPECT_TRUE(loader.Identify(&node, Filename("plant.mvr"), goodBytes, 20));
  EXPECT_FALSE(loader.Identify(&node, Filename("plant.txt"), goodBytes, 20));
  EXPECT_FALSE(loader.Identify(&node, Filename("plant.mvr"), goodBytes, 11));
  EXPECT_FALSE(
      loader.Identify(&node, Filename("plant.mvr"), reinterpret_cast<UChar*>(bad.data()), 20));
}

TEST(MvrSceneLoader, modesBelowTwoBecomeThePolygonImportAndUnknownModesAreReported) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  MvrLoader loader;
  BaseList2D node(MvrLoader::kDescriptionId);
  BaseContainer* settings = node.GetDataInstance();
  MvrLoader::initSettings(*settings);
  const std::string path = writeScene(
      "import-mode.mvr", sceneOf(structOf("Camera", "Camera {\n}\nChildren {\n\"Box\"\n}\n") +
                                 structOf("Box", "Primitive {\nType \"Box\"\n}\n")));
  BaseDocument* document = BaseDocument::Alloc();
  settings->SetLong(MvrLoader::IdImportMode, 0);
  EXPECT_EQ(loader.Load(&node, Filename(path), document, SCENEFILTER_OBJECTS, nullptr, nullptr),
            FILEERROR_NONE);
  EXPECT_EQ(settings->GetLong(MvrLoader::IdImportMode), MvrLoader::ModePolygons);
  ASSERT_TRUE(document->GetFirstObject());
  EXPECT_EQ(document->GetFirstObject()->GetType(), Opolygon);
  settings->SetLong(MvrLoader::IdImportMode, 7);
  EXPECT_EQ(loader.Load(&node, Filename(path), document, SCENEFILTER_OBJECTS, nullptr, nullptr),
            FILEERROR_NONE);
  EXPECT_TRUE(console.saw("Morvo Import Error: Unknown Import Mode"));
  BaseDocument::Free(document);
}

TEST(MvrSceneLoader, settingsAreEnabledByTheImportMode) {
  MvrLoader loader;
  BaseList2D node(MvrLoader::kDescriptionId);
  BaseContainer* settings = node.GetDataInstance();
  MvrLoader::initSettings(*settings);
  const GeData none;
  struct Row {
    Int32 id;
    bool polygons, generators;
  };
  const Row rows[] = {{2002, false, true},
                      {2005, false, true},
                      {2010, false, true},
                      {2011, true, true},
                      {1000, true, true}};
  for (const Row& row : rows) {
    settings->SetLong(MvrLoader::IdImportMode, MvrLoader::ModePolygons);
    EXPECT_EQ(loader.GetDEnabling(&node, DescID(row.id), none, 0, nullptr), row.polygons) << row.id;
    settings->SetLong(MvrLoader::IdImportMode, MvrLoader::ModeGenerators);
    EXPECT_EQ(loader.GetDEnabling(&node, DescID(row.id), none, 0, nullptr), row.generators)
        << row.id;
  }
}
