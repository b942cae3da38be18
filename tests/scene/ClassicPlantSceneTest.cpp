// Classic trees, horns and leaves from scene text, loaded into the classic graph and rendered:
// polygon counts, bounds, the profile stand-in, and what the branches inherit.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "SceneLoadSupport.h"
#include "classic/ClassicTree.h"
#include "curves/MersenneTwister.h"
#include "curves/ParameterSetData.h"
#include "scene/MvrSceneLoader.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/MeshExpectations.h"
#include "support/SceneRendering.h"

using namespace mv;

namespace {

std::string knots(const char* block, double first, double last) {
  std::ostringstream out;
  out << block << " {\nSize 2\n0," << first << ",0\n1," << last << ",0\n}\n";
  return out.str();
}

std::string sceneText(const std::string& root, const std::string& structs) {
  return "Version 0.93\nQueue {\nKeySequence {\nKeyFrame {\nTime 0\nModel {\n" +
         structOf("Camera", "Camera {\n}\nChildren {\n\"" + root + "\"\n}\n") + structs +
         "}\n}\n}\n}\n";
}

// A straight tree of length 3 with a tube of 8 points and radius 0.25, and leaves at its knots.
std::string treeScene(const std::string& branches) {
  return structOf("Stem",
                  "Primitive {\nType \"Tube\"\nPoints 8\n}\nTree {\nSegments 10\n"
                  "Length {3,0.001,20}\nBranch_Num {3,1,100}\n" +
                      knots("Shape", 0.5, 0.5) + knots("Branchiness", 1, 1) + knots("Dense", 1, 1) +
                      knots("Deviate", 0, 0) + knots("Kruschtl", 0, 0) + knots("Scale", 0.6, 0.6) +
                      knots("GeomScale", 1, 1) + knots("Phototropism", 0, 0) +
                      knots("Gravitropism", 0, 0) + branches + "}\n");
}

// A leaf of 4 segments, moving 20 x 0.05 = 1 up z, with a five-point area half a unit wide.
std::string leafComponent() {
  return structOf("Leaf",
                  "Primitive {\nType \"Area\"\nApplyProfil\nProfil {\nSize 5\n"
                  "0,0,0\n0.25,0,0\n0.5,0,0\n0.75,0,0\n1,0,0\n}\n}\n"
                  "Leaf {\nSegments {4,1,100}\nLength {20,0.001,20}\n"
                  "Shape 1,1,\"id\",0,5\n" +
                      knots("Phototropism", 0, 0) + knots("Gravitropism", 0, 0) + "}\n");
}

struct Scene {
  explicit Scene(const std::string& text, double unit = 1.0) {
    ParameterSetData settings;
    loader.initParameters(settings, unit);
    std::istringstream stream(text);
    loaded = loader.loadStream(settings, stream);
    loader.releaseUnlinked();
    mesh = renderNode(graph);
  }
  size_t selected(const std::string& name) const {
    const auto found = mesh.selections.find(name);
    return found == mesh.selections.end() ? 0 : found->second.size();
  }
  SceneGraph graph;
  MvrSceneLoader loader{&graph};
  bool loaded = false;
  MeshData mesh;
};

}  // namespace

TEST(ClassicPlantScene, treeWithLeavesHasItsTubeAndOneLeafPerKnot) {
  CapturingMessageHandler messages;
  const Scene scene(sceneText("Stem", treeScene("Branches {\n\"Leaf\"\n}\n") + leafComponent()));
  ASSERT_TRUE(scene.loaded);
  EXPECT_TRUE(messages.warnings.empty());
  // 8 columns by 9 intervals of samples; three knots below the top, 4 x 4 quads a leaf.
  EXPECT_EQ(scene.selected("Stem"), 72u);
  EXPECT_EQ(scene.selected("Leaf"), 3u * 16u);
  EXPECT_EQ(scene.mesh.polygons.size(), 72u + 48u);
  const Bounds bounds = boundsOf(scene.mesh);
  EXPECT_NEAR(bounds.low.z, 0.0, 1e-9);
  EXPECT_NEAR(bounds.high.z, 3.0, 1e-9);
  // Leaves of length 1 tilted far from the trunk stick out well beyond its radius of 0.25.
  EXPECT_GT(std::max({bounds.high.x, bounds.high.y, -bounds.low.x, -bounds.low.y}), 0.8);
}

TEST(ClassicPlantScene, straightTreeTubeBounds) {
  const Scene scene(sceneText("Stem", treeScene("")));
  ASSERT_EQ(scene.mesh.polygons.size(), 72u);
  const Bounds bounds = boundsOf(scene.mesh);
  expectNear(bounds.low, {-0.25, -0.25, 0}, 1e-9);
  expectNear(bounds.high, {0.25, 0.25, 3}, 1e-9);
  // The tree without branches still has its profile as first child.
  Node* stem = scene.graph.children().at(0)->children().at(0);
  EXPECT_EQ(stem->children().at(0)->name(), "Stem_Tube");
}

TEST(ClassicPlantScene, treeWithoutPrimitiveGetsAnEmptyProfile) {
  const Scene scene(sceneText("Bare", structOf("Bare", "Tree {\n}\n")));
  ASSERT_TRUE(scene.loaded);
  Node* bare = scene.graph.children().at(0)->children().at(0);
  ASSERT_FALSE(bare->children().empty());
  EXPECT_EQ(bare->children()[0]->name(), "Bare_Undefined");
  EXPECT_TRUE(scene.mesh.polygons.empty());
}

TEST(ClassicPlantScene, leafOutlineClosesAtItsTip) {
  const Scene scene(sceneText("Leaf", leafComponent()));
  ASSERT_EQ(scene.mesh.polygons.size(), 16u);
  const Bounds bounds = boundsOf(scene.mesh);
  EXPECT_NEAR(bounds.high.z - bounds.low.z, 1.0, 1e-9);
  EXPECT_NEAR(bounds.high.x - bounds.low.x, 0.5, 1e-9);
}

TEST(ClassicPlantScene, hornPlacesElementsEveryStepsAndItsTop) {
  const std::string horn =
      structOf("Horn",
               "Primitive {\nType \"Tube\"\nPoints 8\n}\nHorn {\nSegments 9\nMoveScale 1\n"
               "Length {2,0.001,20}\nShape 0.5,0.5,\"id\",0,5\nSteps 3,3,\"id\",1,200\n"
               "Ribs {\n\"Ring\"\n}\n}\nChildren {\n\"Tip\"\n}\n");
  const std::string ring = structOf("Ring", "Primitive {\nType \"Box\"\nResolution 1\n}\n");
  const std::string tip = structOf("Tip", "Primitive {\nType \"Box\"\nResolution 1\n}\n");
  const Scene scene(sceneText("Horn", horn + ring + tip));
  EXPECT_EQ(scene.selected("Horn"), 8u * 9u);
  EXPECT_EQ(scene.selected("Ring_Box"), 3u * 6u);
  EXPECT_EQ(scene.selected("Tip_Box"), 6u);
}

namespace {

// The points of the polygons in a selection, in polygon order, four a polygon.
std::vector<Vector3> selectedCorners(const MeshData& mesh, const std::string& name) {
  std::vector<Vector3> corners;
  for (uint32_t index : mesh.selections.at(name)) {
    const MeshPolygon& polygon = mesh.polygons[index];
    for (uint32_t corner : {polygon.a, polygon.b, polygon.c, polygon.d})
      corners.push_back(mesh.points[corner]);
  }
  return corners;
}

double distanceToNearest(const Vector3& point, const std::vector<Vector3>& cloud) {
  double nearest = 1e300;
  for (const Vector3& other : cloud) nearest = std::min(nearest, (other - point).length());
  return nearest;
}

Vector3 centreOf(const std::vector<Vector3>& points) {
  Vector3 sum;
  for (const Vector3& point : points) sum += point;
  return sum * (1.0 / static_cast<double>(points.size()));
}

const char* kTurnedAndMoved =
    "Transform {\nScale {1,-1,20} {1,-1,20} {1,-1,20}\n"
    "Rotation {0.7,-3.14,3.14} {0,-3.14,3.14} {0.4,-3.14,3.14}\n"
    "Translation {3,-50,50} {-2,-50,50} {1,-50,50}\n}\n";

std::string hornWithTip(const std::string& transform) {
  return structOf("Horn", transform +
                              "Primitive {\nType \"Tube\"\nPoints 8\n}\nHorn {\nSegments 9\n"
                              "MoveScale 1\nLength {2,0.001,20}\nShape 0.5,0.5,\"id\",0,5\n"
                              "RotX 0.3,0.3,\"id\",-1,1\nTop TRUE\n}\nChildren {\n\"Tip\"\n}\n") +
         structOf("Tip", "Primitive {\nType \"Box\"\nResolution 1\n}\n");
}

}  // namespace

TEST(ClassicPlantScene, leavesOfABoughLieOnTheBough) {
  const std::string bough =
      structOf("Bough",
               "Primitive {\nType \"Tube\"\nPoints 8\n}\nTree {\nSegments 10\n"
               "Length {2,0.001,20}\nBranch_Num {4,1,100}\n" +
                   knots("Shape", 0.2, 0.2) + knots("Branchiness", 1, 1) + knots("Dense", 1, 1) +
                   knots("Deviate", 0, 0) + knots("Kruschtl", 0, 0) + knots("Scale", 0.6, 0.6) +
                   knots("GeomScale", 1, 1) + knots("Phototropism", 0, 0) +
                   knots("Gravitropism", 0, 0) + "Branches {\n\"Leaf\"\n}\n}\n");
  const Scene scene(
      sceneText("Stem", treeScene("Branches {\n\"Bough\"\n}\n") + bough + leafComponent()));
  ASSERT_TRUE(scene.loaded);
  const std::vector<Vector3> boughCorners = selectedCorners(scene.mesh, "Bough");
  const std::vector<Vector3> leafCorners = selectedCorners(scene.mesh, "Leaf");
  ASSERT_FALSE(boughCorners.empty());
  ASSERT_EQ(leafCorners.size() % 64, 0u);  // 16 quads a leaf
  const Bounds bounds = boundsOf(scene.mesh);
  const double extent = (bounds.high - bounds.low).length();
  // Each leaf starts on its bough's axis, so some corner of it lies within the bough's radius
  // (0.2 times its scale) of a ring point of the bough.
  for (size_t leaf = 0; leaf < leafCorners.size(); leaf += 64) {
    double nearest = 1e300;
    for (size_t k = leaf; k < leaf + 64; ++k)
      nearest = std::min(nearest, distanceToNearest(leafCorners[k], boughCorners));
    EXPECT_LT(nearest, 0.25) << "leaf " << leaf / 64 << " of a plant " << extent << " wide";
  }
}

TEST(ClassicPlantScene, hornsTopElementStandsAtItsEndInAnyFrame) {
  const Scene alone(sceneText("Horn", hornWithTip("")));
  const Vector3 tip = centreOf(selectedCorners(alone.mesh, "Tip_Box"));
  const std::vector<Vector3> horn = selectedCorners(alone.mesh, "Horn");
  // The last ring of the horn: its corners farthest along the path from the first ring.
  ASSERT_FALSE(horn.empty());
  EXPECT_LT(distanceToNearest(tip, horn), 0.5 + 1e-9);
  // Inside a turned and moved group the whole horn, tip included, moves as one rigid body.
  const Scene grouped(sceneText(
      "Group", structOf("Group", std::string(kTurnedAndMoved) + "Children {\n\"Horn\"\n}\n") +
                   hornWithTip("")));
  ASSERT_EQ(grouped.mesh.points.size(), alone.mesh.points.size());
  const Vector3 movedTip = centreOf(selectedCorners(grouped.mesh, "Tip_Box"));
  const std::vector<Vector3> movedHorn = selectedCorners(grouped.mesh, "Horn");
  EXPECT_NEAR(distanceToNearest(movedTip, movedHorn), distanceToNearest(tip, horn), 1e-9);
  EXPECT_NEAR((movedTip - movedHorn.front()).length(), (tip - horn.front()).length(), 1e-9);
}

TEST(ClassicPlantScene, unitScalesEveryExampleAsAWhole) {
  for (const char* example : {"oak.mvr", "horn.mvr", "hydra.mvr", "leaf.mvr", "plant.mvr",
                              "sunflower.mvr", "pot.mvr", "vase.mvr", "solids.mvr"}) {
    const std::string text = exampleText(example);
    // The horn's displacement draws from "rnd": both renders draw the same numbers.
    MersenneTwister::shared().seed(MersenneTwister::kDefaultSeed);
    const Scene plain(text);
    MersenneTwister::shared().seed(MersenneTwister::kDefaultSeed);
    const Scene scaled(text, 2.5);
    ASSERT_GT(plain.mesh.points.size(), 0u) << example;
    ASSERT_EQ(scaled.mesh.points.size(), plain.mesh.points.size()) << example;
    double worst = 0.0;
    for (size_t i = 0; i < plain.mesh.points.size(); ++i) {
      worst = std::max(worst, (scaled.mesh.points[i] - plain.mesh.points[i] * 2.5).length());
    }
    EXPECT_LT(worst, 1e-9) << example;
  }
}
