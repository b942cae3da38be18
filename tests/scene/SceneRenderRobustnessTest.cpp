// Hostile scenes through the whole render (load into the classic graph, release, walk into one
// mesh): every kept input renders alike each time, and each bound renders what it can.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "classic/Node.h"
#include "support/CapturingMessageHandler.h"
#include "support/SceneRenderInput.h"

namespace {

std::string dataFile(const std::string& name) {
  std::ifstream file(std::string(MORVO_SOURCE_DIR) + "/tests/data/" + name, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

mv::MeshData render(const std::string& text) {
  mv::MeshData mesh;
  renderSceneBytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), mesh);
  return mesh;
}

size_t countContaining(const std::vector<std::string>& lines, const std::string& part) {
  return std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.find(part) != std::string::npos;
  });
}

}  // namespace

TEST(SceneRenderRobustness, regressionInputsRenderAlikeEveryTime) {
  CapturingMessageHandler quiet;
  for (const auto& entry : std::filesystem::directory_iterator(MORVO_SOURCE_DIR "/tests/data")) {
    const std::string name = entry.path().filename().string();
    if (name.rfind("regress-", 0) != 0) continue;
    const std::string text = dataFile(name);
    const mv::MeshData first = render(text), second = render(text);
    EXPECT_EQ(first.polygons.size(), second.polygons.size()) << name;
    EXPECT_EQ(first.points.size(), second.points.size()) << name;
  }
}

TEST(SceneRenderRobustness, deepChainRendersItsUpperPartAndSaysSoOnce) {
  CapturingMessageHandler messages;
  // 200 boxes, each below a switch of the one above: 400 levels of graph.
  const mv::MeshData mesh = render(dataFile("regress-deep-chain.mvr"));
  EXPECT_EQ(countContaining(messages.warnings, "deeper than"), 1u);
  EXPECT_GT(mesh.polygons.size(), 6u * 100u);
  EXPECT_LT(mesh.polygons.size(), 6u * 200u);
  EXPECT_EQ(mesh.polygons.size() % 6, 0u);
}

TEST(SceneRenderRobustness, objectThatFailsLetsGoOfItsChildrenOnce) {
  CapturingMessageHandler messages;
  // The hydra with ribs fails; its sphere and its child stay unlinked and are freed once each.
  const mv::MeshData mesh = render(dataFile("regress-unlinked-ribs.mvr"));
  EXPECT_EQ(countContaining(messages.errors, "Branch/Rib Link in non Tree/Horn"), 1u);
  EXPECT_TRUE(mesh.polygons.empty());
}

TEST(SceneRenderRobustness, tooFinePrimitiveIsSkippedBeforeItIsMade) {
  CapturingMessageHandler messages;
  const mv::MeshData mesh = render(dataFile("regress-huge-box.mvr"));
  EXPECT_TRUE(mesh.polygons.empty());
  EXPECT_EQ(countContaining(messages.warnings, "too fine"), 6u);  // one a face
}

TEST(SceneRenderRobustness, nestedArrangersHoldABoundedNumberOfPlacements) {
  CapturingMessageHandler messages;
  // Three balls of the most elements each, one inside the other: the third would hold more
  // than the walk may, and its placements (all the seeds) are left out.
  const mv::MeshData mesh = render(dataFile("regress-nested-phiballs.mvr"));
  EXPECT_EQ(countContaining(messages.warnings, "nested in each other place more than"), 1u);
  // Each visit of the fifth ball makes its placements before they are dropped: the work of the
  // whole walk is bounded too.
  EXPECT_EQ(countContaining(messages.warnings, "instances in all"), 1u);
  EXPECT_TRUE(mesh.polygons.empty());
}
