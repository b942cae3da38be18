// Helpers of the scene tests: a recording load of a text or a file, and the calls of a load as
// plain (operation, name, parent) rows to compare whole sequences.
#pragma once

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "curves/ParameterSetData.h"
#include "scene/MvrRecordingLoader.h"
#include "support/SceneText.h"

using CallRow = std::array<std::string, 3>;  // operation, created name (or object), parent

struct RecordedLoad {
  mv::MvrRecordingLoader loader;
  bool result = false;

  // The calls without the frame and background notes, as rows.
  std::vector<CallRow> rows() const {
    std::vector<CallRow> result;
    for (const mv::MvrCall& call : loader.calls) {
      if (call.operation == "setFrames" || call.operation == "setBackground") continue;
      const std::string& name = call.created.empty() ? call.name : call.created;
      result.push_back({call.operation, name, call.parent});
    }
    return result;
  }
  // The one create call of that created name, or null.
  const mv::MvrCall* created(const std::string& name) const {
    for (const mv::MvrCall& call : loader.calls)
      if (call.created == name) return &call;
    return nullptr;
  }
  int count(const std::string& operation) const {
    return static_cast<int>(loader.callsOf(operation).size());
  }
};

inline void loadText(RecordedLoad& load, const std::string& text, double unit = 1.0) {
  mv::ParameterSetData settings;
  load.loader.initParameters(settings, unit);
  std::istringstream stream(text);
  load.result = load.loader.loadStream(settings, stream);
}

inline std::string exampleText(const std::string& name) {
  std::ifstream file(std::string(MORVO_SOURCE_DIR) + "/examples/" + name, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}
