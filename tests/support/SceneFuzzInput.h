// loadSceneBytes: the whole scene load (chunk reader, vocabulary, walk, curve conversion) over a
// byte string, into a recording loader. Shared by the fuzz target and the robustness tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "curves/ParameterSetData.h"
#include "scene/MvrRecordingLoader.h"

inline bool loadSceneBytes(const std::uint8_t* data, std::size_t size) {
  mv::ParameterSetData settings;
  mv::MvrRecordingLoader loader;
  loader.initParameters(settings, 100.0);
  std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
  return loader.loadStream(settings, stream);
}
