// SceneText: builders of scene file text for tests, one block at a time.
#pragma once

#include <initializer_list>
#include <string>

// A Struct block named name around body.
inline std::string structOf(const std::string& name, const std::string& body = "") {
  return "Struct {\nName \"" + name + "\"\n" + body + "}\n";
}

// A block of quoted names, such as the children or branches of a Struct.
inline std::string nameList(std::initializer_list<const char*> names,
                            const char* block = "Children") {
  std::string text = std::string(block) + " {\n";
  for (const char* name : names) text += "\"" + std::string(name) + "\"\n";
  return text + "}\n";
}

// A scene of one key frame whose model holds the given Struct blocks.
inline std::string sceneOf(const std::string& structs) {
  return "Version 0.93\nQueue {\nKeyFrame {\nModel {\n" + structs + "}\n}\n}\n";
}
