// loadSceneBytes, convertSceneBytes: the whole scene load (chunk reader, vocabulary, walk, curve
// conversion) over a byte string, into a recording loader, and the same through the conversion to
// growth nodes. Shared by the fuzz targets and the robustness tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "curves/ParameterSetData.h"
#include "scene/MvrRecordingLoader.h"
#include "support/ConversionRecorder.h"

inline bool loadSceneBytes(const std::uint8_t* data, std::size_t size) {
  mv::ParameterSetData settings;
  mv::MvrRecordingLoader loader;
  loader.initParameters(settings, 100.0);
  std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
  return loader.loadStream(settings, stream);
}

// The conversion with every path and curvature flag taken from the first byte, so that a fuzzer
// reaches each road.
inline bool convertSceneBytes(const std::uint8_t* data, std::size_t size) {
  mv::ParameterSetData settings;
  ConversionRecorder loader;
  loader.initParameters(settings, 100.0);
  const std::uint8_t flags = size > 0 ? data[0] : 0;
  settings.setBool(mv::MvrLoader::IdFractionalCurvature, flags & 1);
  settings.setBool(mv::MvrToMv4Loader::IdHornKnotPath, flags & 2);
  settings.setBool(mv::MvrToMv4Loader::IdTreeKnotPath, flags & 4);
  return convertScene(loader, settings, std::string(reinterpret_cast<const char*>(data), size));
}
