// mutateScene: a few random edits of a scene text (changed bytes, inserted grammar pieces, cuts,
// repeated stretches), for the robustness tests of the scene load and of the import.
#pragma once

#include <iterator>
#include <random>
#include <string>

// Pieces that the grammar reacts to, for insertion at random places.
inline const char* const kSceneTokens[] = {"{\n",
                                           "}\n",
                                           "\n",
                                           "\r",
                                           "\"",
                                           ",",
                                           "0x",
                                           "Size 2000000000\n",
                                           "Struct {\n",
                                           "Children {\n",
                                           "Model {\n",
                                           "1e400",
                                           "-",
                                           "frame(x)",
                                           "((((",
                                           "Tree {\n",
                                           "Branches {\n",
                                           "Switch {\n"};

inline std::string mutateScene(std::string text, std::mt19937& random) {
  const int edits = 1 + static_cast<int>(random() % 8);
  for (int i = 0; i < edits; ++i) {
    const std::size_t at = text.empty() ? 0 : random() % text.size();
    switch (random() % 4) {
      case 0:
        if (!text.empty()) text[at] = static_cast<char>(random());
        break;
      case 1:
        text.insert(at, kSceneTokens[random() % std::size(kSceneTokens)]);
        break;
      case 2:
        text.erase(at, random() % 64);
        break;
      default:  // repeat a stretch: duplicated blocks, names and links
        text.insert(at, text.substr(random() % (text.size() + 1), random() % 256));
    }
  }
  return text;
}
