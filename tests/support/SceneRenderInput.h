// renderSceneBytes: the whole render over a byte string, as morvo render does it: the load into
// the classic graph, the release of what no link reached, and the walk into one mesh under a
// budget of visits and polygons. Shared by the render fuzz target and the regression replay.
#pragma once

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "classic/SceneGraph.h"
#include "classic/SelectionMesh.h"
#include "core/EHierarchyHelp.h"
#include "core/ProgressHandler.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"
#include "scene/MvrSceneLoader.h"

// Cancels the walk once it has visited or written more than a test needs.
class RenderBudget : public mv::ProgressHandler {
 public:
  static constexpr long kMaxVisits = 20000;
  static constexpr std::uint32_t kMaxPolygons = 400000;

  explicit RenderBudget(const mv::MeshData& mesh) : mesh_(mesh) {}
  void start() override {}
  void finish() override {}
  void spin() override {}
  void setProgress(double) override { ++visits_; }
  bool isCancelled() override {
    return visits_ > kMaxVisits || mesh_.getPolygonCount() > kMaxPolygons;
  }

 private:
  const mv::MeshData& mesh_;
  long visits_ = 0;
};

inline bool renderSceneBytes(const std::uint8_t* data, std::size_t size, mv::MeshData& mesh) {
  mv::SceneGraph graph;
  bool loaded = false;
  {
    mv::MvrSceneLoader loader(&graph);
    mv::ParameterSetData settings;
    loader.initParameters(settings, 1.0);
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    loaded = loader.loadStream(settings, stream);
    loader.releaseUnlinked();
  }
  mv::SelectionMesh selecting(mesh);
  {
    mv::OPolygonStream stream(&selecting, true);
    selecting.watch(&stream);
    RenderBudget budget(mesh);
    mv::EHierarchyHelp help;
    help.progress = &budget;
    graph.evaluate(help, stream);
    stream.flush();
  }
  selecting.watch(nullptr);
  selecting.finish();
  return loaded;
}
