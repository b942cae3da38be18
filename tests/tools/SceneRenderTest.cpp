// The render pipeline of morvo render on the bundled example scene: what reaches the mesh.
#include <gtest/gtest.h>

#include <set>

#include "commands/SceneRender.h"
#include "support/CapturingMessageHandler.h"

namespace {

std::set<int> materialsOf(const RenderedScene& scene, const std::string& selection) {
  std::set<int> materials;
  for (uint32_t polygon : scene.mesh.selections.at(selection)) {
    materials.insert(scene.mesh.polygons.at(polygon).material);
  }
  return materials;
}

}  // namespace

TEST(SceneRender, solidsExampleKeepsSelectionsAndMaterials) {
  CapturingMessageHandler messages;
  RenderedScene scene;
  renderScene(MORVO_SOURCE_DIR "/examples/solids.mvr", 1.0, false, scene);
  EXPECT_TRUE(scene.loaded);
  EXPECT_EQ(scene.topObjects, 1);
  // Box 2x2 per face, sphere 12 x 10, cone 11 x 6, cylinder 12 x 12, square 4 x 4; no disk.
  EXPECT_EQ(scene.mesh.getPolygonCount(), 24u + 120u + 66u + 144u + 16u);
  EXPECT_EQ(scene.mesh.selections.at("RedBox_Box").size(), 24u);
  EXPECT_EQ(scene.mesh.selections.count("Lid_Circle"), 0u);
  // Materials are numbered in the order of the walk, children by name.
  EXPECT_EQ(scene.materials.at(5).name, "RedBox_Red");
  EXPECT_FLOAT_EQ(scene.materials.at(5).diffuse.red, 0.8f);
  EXPECT_EQ(materialsOf(scene, "RedBox_Box"), std::set<int>{5});
  EXPECT_EQ(scene.materials.at(4).name, "Pillar");
  EXPECT_EQ(scene.materials.at(4).textureFile, "bark.png");
  EXPECT_EQ(materialsOf(scene, "Pillar_Cylinder"), std::set<int>{4});
  EXPECT_TRUE(messages.errors.empty());
  EXPECT_TRUE(messages.warnings.empty());
}

TEST(SceneRender, unitScalesTheWholeScene) {
  RenderedScene small, large;
  renderScene(MORVO_SOURCE_DIR "/examples/solids.mvr", 1.0, false, small);
  renderScene(MORVO_SOURCE_DIR "/examples/solids.mvr", 3.0, false, large);
  ASSERT_EQ(small.mesh.points.size(), large.mesh.points.size());
  for (size_t i = 0; i < small.mesh.points.size(); ++i) {
    EXPECT_NEAR((large.mesh.points[i] - small.mesh.points[i] * 3.0).length(), 0.0, 1e-9);
  }
}

TEST(SceneRender, aFileWithoutRootsLoadsNothing) {
  CapturingMessageHandler messages;
  RenderedScene scene;
  renderScene(MORVO_SOURCE_DIR "/tests/data/render-nothing.mvr", 1.0, false, scene);
  EXPECT_FALSE(scene.loaded);
  EXPECT_EQ(scene.topObjects, 0);
  EXPECT_EQ(scene.mesh.getPolygonCount(), 0u);
}
