// generateScene: a large classic scene for the benchmarks: one camera and trees of leaves, about
// 100 lines per component.
#pragma once

#include <string>

constexpr int kLeavesPerTree = 99;

inline void appendKnots(std::string& text, const char* block, int count) {
  text += std::string(block) + " {\nSize " + std::to_string(count) + "\n";
  for (int i = 0; i < count; ++i)
    text += std::to_string(i / double(count - 1)) + "," + std::to_string(0.5 + 0.01 * i) + ",0\n";
  text += "}\n";
}

inline void appendLeaf(std::string& text, const std::string& name) {
  text += "Struct {\nName \"" + name +
          "\"\nPhoto {0.5,-1,1}\nTransform {\n"
          "Scale {1,-1,20} {1,-1,20} {1,-1,20}\nRotation {0.2,-3.14,3.14} {0,-3.14,3.14} "
          "{0,-3.14,3.14}\nTranslation {0,-50,50} {0,-50,50} {0.1,-50,50}\n}\n"
          "Primitive {\nType \"Area\"\nApplyProfil\n";
  appendKnots(text, "Profil", 20);
  text +=
      "}\nLeaf {\nSegments {8,1,100}\nLength {0.6,0.001,20}\nRotX 0.2,0.4,\"id\",-1,1\n"
      "Flap 0.1,0.3,\"sin(frame(x))\",-7,7\n";
  appendKnots(text, "Gravitropism", 56);
  text += "}\n}\n";
}

// One camera, trees of kLeavesPerTree leaves each: components = 1 + trees * 100.
inline std::string generateScene(int trees, long& lines) {
  std::string text =
      "Version 0.93\nBackground 255,255,255\nQueue {\nFrames 10\nKeyFrame {\n"
      "Model {\nStruct {\nName \"Camera\"\nCamera {\n}\nChildren {\n";
  for (int t = 0; t < trees; ++t) text += "\"T" + std::to_string(t) + "\"\n";
  text += "}\n}\n";
  for (int t = 0; t < trees; ++t) {
    const std::string tree = "T" + std::to_string(t);
    text += "Struct {\nName \"" + tree +
            "\"\nPrimitive {\nType \"Tube\"\nPoints 6\n}\nTree {\n"
            "Segments 20\nLength {5,0.001,20}\nBranch_Num {99,1,100}\n";
    appendKnots(text, "Shape", 40);
    appendKnots(text, "Branchiness", 40);
    text += "Branches {\n";
    for (int l = 0; l < kLeavesPerTree; ++l) text += "\"" + tree + "_" + std::to_string(l) + "\"\n";
    text += "}\n}\n}\n";
    for (int l = 0; l < kLeavesPerTree; ++l) appendLeaf(text, tree + "_" + std::to_string(l));
  }
  text += "}\n}\n}\n";
  lines = 0;
  for (char c : text) lines += c == '\n';
  return text;
}
