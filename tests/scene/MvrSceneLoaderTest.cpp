// Whole scene files loaded into the classic graph and rendered to a mesh: counts, bounds, shared
// children, materials and selections, and bad links.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "classic/SolidParameters.h"
#include "curves/ParameterSetData.h"
#include "geometry/Spline.h"
#include "scene/MvrSceneLoader.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/MeshExpectations.h"
#include "support/SceneRendering.h"
#include "support/SceneText.h"

using namespace mv;

namespace {

std::string transform(const Vector3& t, const Vector3& r = {}) {
  std::ostringstream out;
  out << "Transform {\nScale {1,-1,20} {1,-1,20} {1,-1,20}\n"
      << "Rotation {" << r.x << ",-3.14,3.14} {" << r.y << ",-3.14,3.14} {" << r.z
      << ",-3.14,3.14}\n"
      << "Translation {" << t.x << ",-50,50} {" << t.y << ",-50,50} {" << t.z << ",-50,50}\n}\n";
  return out.str();
}

std::string camera(std::initializer_list<const char*> names) {
  return structOf("Camera", nameList(names) + "Camera {\n}\n");
}

struct LoadedScene {
  SceneGraph graph;
  MvrSceneLoader loader{&graph};
  bool loaded = false;
  MeshData mesh;
};

// Loads text through a file, as a user's load does, and renders the graph.
void loadScene(const std::string& text, LoadedScene& scene) {
  // One file per test and process: ctest runs the tests of this program side by side.
  const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
  const auto path = std::filesystem::temp_directory_path() /
                    ("morvo-" + test + "-" + std::to_string(::getpid()) + ".mvr");
  std::ofstream(path) << text;
  ParameterSetData settings;
  scene.loader.initParameters(settings, 1.0);
  scene.loaded = scene.loader.load(settings, path.string());
  std::filesystem::remove(path);
  scene.mesh = renderNode(scene.graph);
}

Node* childNamed(Node& parent, const std::string& name) {
  for (Node* child : parent.children()) {
    if (child->name() == name) return child;
  }
  return nullptr;
}

Vector3 centreOf(const MeshData& mesh, bool positiveX) {
  Vector3 sum;
  int count = 0;
  for (const Vector3& p : mesh.points) {
    if ((p.x > 0) != positiveX) continue;
    sum += p;
    ++count;
  }
  return count ? sum / count : sum;
}

}  // namespace

TEST(MvrSceneLoader, rendersBoxAndSphereWithTheirCountsAndBounds) {
  CapturingMessageHandler messages;
  LoadedScene scene;
  loadScene(sceneOf(camera({"Cube", "Ball"}) +
                    structOf("Cube", transform({2, 0, 0}) +
                                         "Primitive {\nType \"Box\"\nResolution 1\n}\n") +
                    structOf("Ball", transform({0, 0, 3}) +
                                         "Primitive {\nType \"Sphere\"\nResolution 2\n}\n")),
            scene);
  EXPECT_TRUE(scene.loaded);
  // A box of 6 quads on 24 points; a sphere of 6 slices by 4 stacks with its seam welded.
  EXPECT_EQ(scene.mesh.polygons.size(), 6u + 24u);
  EXPECT_EQ(scene.mesh.points.size(), 24u + 30u);
  // Each node stands at the inverse of its file transform, and the primitive turns inside it,
  // so the box comes to x = -2 and the sphere to z = -3.
  const Bounds bounds = boundsOf(scene.mesh);
  expectNear(bounds.low, {-2.5, -0.5, -3.5}, 1e-9);
  expectNear(bounds.high, {0.5, 0.5, 0.5}, 1e-9);
  EXPECT_EQ(scene.mesh.selections.at("Cube_Box").size(), 6u);
  EXPECT_EQ(scene.mesh.selections.at("Ball_Sphere").size(), 24u);
  EXPECT_TRUE(messages.warnings.empty());
}

TEST(MvrSceneLoader, sharedChildAppearsOncePerParent) {
  LoadedScene scene;
  loadScene(sceneOf(camera({"Left", "Right"}) +
                    structOf("Left", transform({-2, 0, 0}) + nameList({"Ball"})) +
                    structOf("Right", transform({2, 0, 0}) + nameList({"Ball"})) +
                    structOf("Ball", "Primitive {\nType \"Box\"\nResolution 1\n}\n")),
            scene);
  ASSERT_TRUE(scene.loaded);
  Node* cameraNode = childNamed(scene.graph, "Camera");
  ASSERT_NE(cameraNode, nullptr);
  Node* left = childNamed(*cameraNode, "Left");
  Node* right = childNamed(*cameraNode, "Right");
  ASSERT_TRUE(left && right);
  Node* ball = childNamed(*left, "Ball");
  EXPECT_EQ(ball, childNamed(*right, "Ball"));
  EXPECT_EQ(ball->useCount(), 2);
  EXPECT_EQ(scene.mesh.polygons.size(), 12u);
  EXPECT_EQ(scene.mesh.selections.at("Ball_Box").size(), 12u);
  // The inverse transforms put Left's copy at +2 and Right's at -2.
  expectNear(centreOf(scene.mesh, true), {2, 0, 0}, 1e-9);
  expectNear(centreOf(scene.mesh, false), {-2, 0, 0}, 1e-9);
}

TEST(MvrSceneLoader, materialsReachPolygonsAndTheGraph) {
  LoadedScene scene;
  const std::string gold =
      "Primitive {\nType \"Box\"\nResolution 1\nUse_GFXColor\nColor \"Gold\"\nGFXColor {\n"
      "DIFFUSE 0.9,0.7,0.1\n}\n}\n";
  const std::string bark =
      "Primitive {\nType \"Sphere\"\nResolution 0\nTexture_Handler 1\nTexture \"Bark\"\n"
      "Texture_File \"bark.png\"\n}\n";
  loadScene(sceneOf(camera({"Gilded", "Barked", "Plain"}) + structOf("Gilded", gold) +
                    structOf("Barked", bark) +
                    structOf("Plain", "Primitive {\nType \"Box\"\nResolution 1\n}\n")),
            scene);
  ASSERT_TRUE(scene.loaded);
  const auto& materials = scene.loader.materialsByIndex;
  ASSERT_EQ(materials.size(), 2u);
  EXPECT_EQ(materials.at(1).name, "Barked");
  EXPECT_EQ(materials.at(1).textureFile, "bark.png");
  EXPECT_EQ(materials.at(2).name, "Gilded_Gold");
  EXPECT_FLOAT_EQ(materials.at(2).diffuse.red, 0.9f);
  EXPECT_EQ(scene.graph.sceneMaterials().size(), 2u);
  std::map<std::string, std::set<int>> materialsBySelection;
  for (const auto& [name, polygons] : scene.mesh.selections) {
    for (uint32_t index : polygons)
      materialsBySelection[name].insert(scene.mesh.polygons[index].material);
  }
  EXPECT_EQ(materialsBySelection.at("Barked_Sphere"), std::set<int>{1});
  EXPECT_EQ(materialsBySelection.at("Gilded_Box"), std::set<int>{2});
  EXPECT_EQ(materialsBySelection.at("Plain_Box"), std::set<int>{-1});
}

TEST(MvrSceneLoader, arrangersLoadAsTheirOwnClassesWithoutWarnings) {
  CapturingMessageHandler messages;
  LoadedScene scene;
  loadScene(sceneOf(camera({"Oak", "Elm"}) + structOf("Oak", "Hydra {\n}\n" + nameList({"Acorn"})) +
                    structOf("Elm", "Hydra {\n}\n") +
                    structOf("Acorn", "Primitive {\nType \"Box\"\nResolution 1\n}\n")),
            scene);
  ASSERT_TRUE(scene.loaded);
  EXPECT_TRUE(messages.warnings.empty());
  Node* oak = childNamed(*childNamed(scene.graph, "Camera"), "Oak");
  ASSERT_NE(oak, nullptr);
  std::string type;
  EXPECT_EQ(oak->simple()->typeName(type), "ClassicHydra");
  EXPECT_EQ(scene.mesh.selections.at("Acorn_Box").size(), 6u * 10u);  // the file default of 10
}

namespace {

// A box of unit size under a lattice of the given control points.
std::string latticeOverBox(const std::string& points, int count) {
  return sceneOf(camera({"Lattice"}) +
                 structOf("Lattice", "HyperPatch {\nPatch_Points {\nSize " + std::to_string(count) +
                                         "\n" + points + "}\n}\n" + nameList({"Cube"})) +
                 structOf("Cube", "Primitive {\nType \"Box\"\nResolution 1\n}\n"));
}

Vector3 highestPoint(const MeshData& mesh) {
  Vector3 best(0, 0, -1e300);
  for (const Vector3& p : mesh.points) {
    if (p.z > best.z) best = p;
  }
  return best;
}

}  // namespace

TEST(MvrSceneLoader, hyperpatchesDeformTheirSubtreeOrWarnAboutTheirLattice) {
  const std::string corners = "0,0,0\n1,0,0\n0,1,0\n1,1,0\n";
  const std::string shearedTop = "0.5,0,1\n1.5,0,1\n0.5,1,1\n1.5,1,1\n";
  CapturingMessageHandler messages;
  LoadedScene sheared, broken;
  loadScene(latticeOverBox(corners + shearedTop, 8), sheared);
  EXPECT_TRUE(messages.warnings.empty());
  loadScene(latticeOverBox(corners, 4), broken);
  ASSERT_EQ(messages.warnings.size(), 1u);
  EXPECT_NE(messages.warnings[0].find("8, 27, 64 or 125"), std::string::npos);
  ASSERT_FALSE(broken.mesh.points.empty());
  ASSERT_EQ(sheared.mesh.points.size(), broken.mesh.points.size());
  // The top of the cube slides by half the lattice side along x; the broken lattice leaves it.
  const Vector3 top = highestPoint(broken.mesh);
  EXPECT_NEAR(highestPoint(sheared.mesh).z, top.z, 1e-9);
  double shift = 0.0;
  for (size_t i = 0; i < broken.mesh.points.size(); ++i) {
    const Vector3 d = sheared.mesh.points[i] - broken.mesh.points[i];
    shift = std::max(shift, d.x);
    EXPECT_NEAR(d.y, 0.0, 1e-9);
    EXPECT_NEAR(d.z, 0.0, 1e-9);
  }
  EXPECT_GT(shift, 0.1);
}

TEST(MvrSceneLoader, revosRevolveTheirProfileAndWarnWithoutTwoPoints) {
  const auto revo = [](const std::string& shape) {
    return sceneOf(camera({"Vase"}) +
                   structOf("Vase", "Primitive {\nType \"Tube\"\nPoints 8\n}\nRevo {\nShape {\n" +
                                        shape + "}\n}\n"));
  };
  CapturingMessageHandler messages;
  LoadedScene vase, stub;
  loadScene(revo("Size 3\n0.5,0,0\n1,0,1\n0.5,0,2\n"), vase);
  EXPECT_TRUE(messages.warnings.empty());
  EXPECT_EQ(vase.mesh.polygons.size(), 2u * 8u);  // two bands of eight quads
  loadScene(revo("Size 1\n1,0,0\n"), stub);
  ASSERT_EQ(messages.warnings.size(), 1u);
  EXPECT_NE(messages.warnings[0].find("two profile points"), std::string::npos);
  EXPECT_TRUE(stub.mesh.polygons.empty());
}

TEST(MvrSceneLoader, prunesBuildOnlyTheirLastChildAndCutTreesAtTheirSolid) {
  const std::string tree =
      "Primitive {\nType \"Tube\"\nPoints 6\n}\nTree {\nVersion 6\nSegments 24\nLength "
      "{1,0.001,20}\nBranch_Num {8,1,100}\nBranches {\n\"Twig\"\n}\n}\n";
  const std::string twig =
      "Primitive {\nType \"Tube\"\nPoints 5\n}\nTree {\nVersion 6\nSegments 12\n}\n";
  const auto scene = [&](const std::string& top) {
    return sceneOf(camera({top.c_str()}) +
                   structOf("Clip",
                            "Primitive {\nType \"Sphere\"\nResolution 4\n}\nPrune {\n"
                            "Method 1\n}\n" +
                                nameList({"Bush"})) +
                   structOf("Bush", tree) + structOf("Twig", twig));
  };
  LoadedScene pruned, free;
  loadScene(scene("Clip"), pruned);
  loadScene(scene("Bush"), free);
  ASSERT_FALSE(pruned.mesh.polygons.empty());
  EXPECT_LT(pruned.mesh.polygons.size() * 10, free.mesh.polygons.size());
  ASSERT_EQ(pruned.mesh.selections.size(), 1u);  // the volume is not drawn
  EXPECT_EQ(pruned.mesh.selections.begin()->first, "Bush");
  EXPECT_EQ(pruned.mesh.selections.count("Twig"), 0u);  // no knot lies inside it
  EXPECT_GT(free.mesh.selections.count("Twig"), 0u);
}

TEST(MvrSceneLoader, rootsOutsideTheCameraAreHidden) {
  LoadedScene scene;
  loadScene(sceneOf(camera({}) + structOf("Loose", "Primitive {\nType \"Box\"\n}\n")), scene);
  EXPECT_TRUE(scene.loaded);
  EXPECT_TRUE(scene.mesh.polygons.empty());
  ASSERT_NE(childNamed(scene.graph, "Loose"), nullptr);
  EXPECT_TRUE(childNamed(scene.graph, "Loose")->hidden());
}

TEST(MvrSceneLoader, clashingNamesGetACounter) {
  SceneGraph graph;
  MvrSceneLoader loader(&graph);
  EXPECT_EQ(loader.createBox("Cube_Box", Matrix4(), 1.0, 1), "Cube_Box");
  EXPECT_EQ(loader.createBox("Cube_Box", Matrix4(), 1.0, 1), "Cube_Box_2");
  EXPECT_EQ(loader.createBox("Cube_Box", Matrix4(), 1.0, 1), "Cube_Box_3");
  EXPECT_EQ(loader.nodeList.at("Cube_Box_2")->name(), "Cube_Box");
  loader.releaseUnlinked();
  EXPECT_TRUE(loader.nodeList.empty());
}

TEST(MvrSceneLoader, primitivesCarryTheFileValuesAndAnInverseMatrix) {
  SceneGraph graph;
  MvrSceneLoader loader(&graph);
  const Matrix4 matrix = Matrix4::translation({1, 2, 3});
  loader.createSphere("S", matrix, 0.75, 3);
  loader.createCone("C", matrix, 2.0, 0.5, 7, 3, 2);
  loader.createCylinder("Y", matrix, 0.5, 4.0, 5);
  loader.createPlane("P", matrix, 2, 3.0, 2);
  loader.createAttractorPrim("A", matrix, 0.1, 2.0, 1);
  ParameterSetData& sphere = loader.nodeList.at("S")->parameters();
  EXPECT_EQ(sphere.getInt(IdSlices), 7);
  EXPECT_EQ(sphere.getInt(IdStacks), 5);
  EXPECT_DOUBLE_EQ(sphere.getDouble(IdSphereRadius), 0.75);
  ParameterSetData& cone = loader.nodeList.at("C")->parameters();
  EXPECT_EQ(cone.getInt(IdSlices), 7);
  EXPECT_DOUBLE_EQ(cone.getDouble(IdConeHeight), 2.0);
  EXPECT_EQ(loader.nodeList.at("Y")->parameters().getInt(IdStacks), 5);
  EXPECT_EQ(loader.nodeList.at("P")->parameters().getInt(IdPlaneFacing), 2);
  EXPECT_EQ(loader.nodeList.at("A")->parameters().getInt(IdAttractorMode), 1);
  expectNear(loader.nodeList.at("S")->matrix(), Matrix4::translation({-1, -2, -3}));
  EXPECT_FALSE(loader.nodeList.at("S")->hidden());
  EXPECT_EQ(loader.createCircle("O", matrix, 1.0, 8), "O");
  ASSERT_NE(loader.nodeList.at("O")->spline(), nullptr);
  EXPECT_EQ(loader.nodeList.at("O")->spline()->getPointCount(), 8u);
  EXPECT_EQ(loader.nodeList.at("O")->simple(), nullptr);
  loader.releaseUnlinked();
}

TEST(MvrSceneLoader, badLinksAndMaterialsAreRefused) {
  CapturingMessageHandler messages;
  SceneGraph graph;
  MvrSceneLoader loader(&graph);
  loader.createBox("Box", Matrix4(), 1.0, 1);
  EXPECT_FALSE(loader.insertUnder("Ghost", ""));
  EXPECT_FALSE(loader.insertUnder("Box", "Ghost"));
  MvrMaterial first, second;
  first.name = "First";
  second.name = "Second";
  EXPECT_FALSE(loader.addMaterial("Ghost", first, {1, 1, 1}, {}, 1));
  EXPECT_TRUE(loader.addMaterial("Box", first, {1, 1, 1}, {}, 1));
  EXPECT_TRUE(loader.addMaterial("Box", second, {1, 1, 1}, {}, 1));
  EXPECT_EQ(loader.materialsByIndex.at(1).name, "First");
  EXPECT_EQ(graph.sceneMaterials().size(), 2u);
  EXPECT_EQ(loader.createMesh("Baked", 0, Matrix4(), *std::make_unique<MeshData>(), true), "Baked");
  EXPECT_FALSE(loader.insertUnder("Baked", ""));
  EXPECT_TRUE(loader.insertUnder("Box", ""));
  EXPECT_FALSE(loader.insertUnder("Box", ""));  // gone from the list once at the root
  EXPECT_EQ(graph.children().size(), 1u);
  const std::vector<std::pair<std::string, std::string>> failed = {
      {"Ghost", ""}, {"Box", "Ghost"}, {"Baked", ""}, {"Box", ""}};
  ASSERT_EQ(loader.skipped.size(), failed.size());
  for (size_t i = 0; i < failed.size(); ++i) {
    EXPECT_EQ(loader.skipped[i].kind, MvrSkip::FailedLink);
    EXPECT_EQ(loader.skipped[i].object, failed[i].first);
    EXPECT_EQ(loader.skipped[i].target, failed[i].second);
  }
}

TEST(MvrSceneLoader, whatTheLoadPassesOverIsReportedAsData) {
  LoadedScene scene;
  loadScene(sceneOf(camera({"Odd", "Ghost"}) + structOf("Odd", "Revo {\n}\n")), scene);
  EXPECT_TRUE(scene.loaded);
  // Children are walked in name order.
  ASSERT_EQ(scene.loader.skipped.size(), 2u);
  EXPECT_EQ(scene.loader.skipped[0].kind, MvrSkip::MissingLink);
  EXPECT_EQ(scene.loader.skipped[0].object, "Camera");
  EXPECT_EQ(scene.loader.skipped[0].target, "Ghost");
  EXPECT_EQ(scene.loader.skipped[1].kind, MvrSkip::UnknownType);
  EXPECT_EQ(scene.loader.skipped[1].object, "Odd");
  EXPECT_EQ(scene.loader.skipped[1].target, "Revo");
}
