#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "SceneLoadSupport.h"
#include "support/CapturingMessageHandler.h"
#include "support/SceneFuzzInput.h"
#include "support/SceneMutation.h"

namespace {

bool loadString(const std::string& text) {
  return loadSceneBytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

bool convertString(const std::string& text) {
  return convertSceneBytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

std::vector<std::filesystem::path> filesIn(const std::string& folder, const std::string& prefix) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.rfind(prefix, 0) == 0 && entry.path().extension() == ".mvr")
      files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

TEST(MvrLoadRobustness, randomByteStringsLoadWithoutHarm) {
  CapturingMessageHandler quiet;
  std::mt19937 random(4357);
  for (int i = 0; i < 400; ++i) {
    std::string text = i % 2 ? "Version 0.93\n" : "";
    const std::size_t length = random() % 2048;
    for (std::size_t j = 0; j < length; ++j) text += static_cast<char>(random() % 128);
    // Noise holds no key frame block, so no load can succeed.
    EXPECT_FALSE(loadString(text));
  }
}

TEST(MvrLoadRobustness, mutatedExampleScenesLoadWithoutHarm) {
  CapturingMessageHandler quiet;
  std::mt19937 random(69069);
  const auto examples = filesIn(std::string(MORVO_SOURCE_DIR) + "/examples", "");
  ASSERT_GE(examples.size(), 5u);
  int loaded = 0;
  for (const auto& path : examples) {
    const std::string original = exampleText(path.filename().string());
    EXPECT_TRUE(loadString(original)) << path;
    for (int i = 0; i < 150; ++i) loaded += loadString(mutateScene(original, random));
  }
  // Most small edits leave a loadable scene: the format has no syntax errors.
  EXPECT_GT(loaded, 150);
}

TEST(MvrLoadRobustness, hostileShapesAreBounded) {
  CapturingMessageHandler quiet;
  std::string nested = "Version 0.93\n";
  for (int i = 0; i < 100000; ++i) nested += "Queue {\n";
  EXPECT_FALSE(loadString(nested));
  EXPECT_TRUE(
      loadString(sceneOf("Struct {\nName \"A\"\nTree {\nKnots {\nSize 2000000000\n"
                         "0,0,0\n}\nSpline\n}\n}\n")));
  std::string selfLinks = "Struct {\nName \"Root\"\nChildren {\n\"A\"\n}\n}\n";
  for (int i = 0; i < 50; ++i) selfLinks += "Struct {\nName \"A\"\nChildren {\n\"A\"\n}\n}\n";
  EXPECT_TRUE(loadString(sceneOf(selfLinks)));
}

TEST(MvrLoadRobustness, switchChainsHaveALoadWideBudget) {
  CapturingMessageHandler messages;
  std::string masks = "Switch {\n";
  for (int line = 0; line < 40; ++line) {
    for (int i = 0; i < 120; ++i) masks += "0x0,";
    masks += "\n";
  }
  masks += "}\n";
  RecordedLoad load;
  loadText(load, sceneOf("Struct {\nName \"P\"\nChildren {\n\"C\"\n}\n}\nStruct {\nName \"C\"\n" +
                         masks + "}\n"));
  EXPECT_TRUE(load.result);
  EXPECT_EQ(load.count("createVariation"), mv::MvrLoader::kMaxSwitchNodes);
  EXPECT_EQ(messages.warnings,
            std::vector<std::string>{"Too many switches: further instances stay shown"});
}

TEST(MvrLoadRobustness, regressionInputsReplay) {
  CapturingMessageHandler quiet;
  const auto inputs = filesIn(std::string(MORVO_SOURCE_DIR) + "/tests/data", "regress-");
  for (const auto& path : inputs) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    // Each input once broke the load; now it loads, and alike every time.
    RecordedLoad first, second;
    loadText(first, text.str());
    loadText(second, text.str());
    EXPECT_EQ(first.result, second.result) << path;
    EXPECT_EQ(first.rows(), second.rows()) << path;
  }
}

TEST(MvrLoadRobustness, mutatedExampleScenesConvertWithoutHarm) {
  CapturingMessageHandler quiet;
  std::mt19937 random(1812433253);
  const auto examples = filesIn(std::string(MORVO_SOURCE_DIR) + "/examples", "");
  int converted = 0;
  for (const auto& path : examples) {
    const std::string original = exampleText(path.filename().string());
    EXPECT_TRUE(convertString(original)) << path;
    for (int i = 0; i < 100; ++i) converted += convertString(mutateScene(original, random));
  }
  EXPECT_GT(converted, 100);
}

TEST(MvrLoadRobustness, hostileValuesConvertWithinBounds) {
  CapturingMessageHandler messages;
  const std::string kinds[] = {
      "Horn {\nSegments {1e300,1,100}\n}\n",
      "Horn {\nSegments {0,0,100}\nSpline\nKnots {\nSize 2\n0,0,0\n0,0,1\n}\n}\n",
      "Leaf {\nSegments {1e300,1,100}\n}\n",
      "Leaf {\nSegments {0,0,100}\nShape 1,1,\"id\",0,2\n}\n",
      "PhiBall {\nNumber {1e300,1,100}\nFan 0,0.5,\"id\",0,3\n}\n",
      "PhiBall {\nNumber {1,1,100}\nFan 0,1e-300,\"id\",0,3\n}\n",
      "Tree {\nSegments {1e300,1,100}\nBranch_Num {1e300,1,100}\n}\n",
      "Tree {\nIniScale {0,0,1}\nPhototropism {\nSize 3\n0,0,0\n0.5,1,0\n1,0,0\n}\n}\n",
  };
  for (const std::string& kind : kinds) {
    // The primitives make every conversion reach its profile and bake roads.
    EXPECT_TRUE(convertString(
        sceneOf("Struct {\nName \"X\"\nPrimitive {\nType \"Tube\"\n}\n" + kind + "}\n")))
        << kind;
  }
}

TEST(MvrLoadRobustness, regressionInputsReplayThroughTheConversion) {
  CapturingMessageHandler quiet;
  for (const auto& path : filesIn(std::string(MORVO_SOURCE_DIR) + "/tests/data", "regress-")) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_EQ(convertString(text.str()), loadString(text.str())) << path;
  }
}
