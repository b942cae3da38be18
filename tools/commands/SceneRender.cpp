#include "commands/SceneRender.h"

#include <fstream>

#include "classic/SceneGraph.h"
#include "classic/SelectionMesh.h"
#include "core/EHierarchyHelp.h"
#include "core/MessageSink.h"
#include "core/ProgressHandler.h"
#include "core/ProgressSink.h"
#include "curves/ParameterSetData.h"
#include "export/PhaseTimes.h"
#include "geometry/OPolygonStream.h"
#include "scene/Chunk.h"
#include "scene/MvrReader.h"
#include "scene/MvrSceneLoader.h"

namespace {

// Forwards the walk's progress and cancels it once it has made more placements or polygons than
// any plant needs: objects shared at many levels multiply, and a hostile file could ask for
// billions of instances.
class WalkBudget : public mv::ProgressHandler {
 public:
  WalkBudget(mv::ProgressHandler* next, const mv::MeshData& mesh) : next_(next), mesh_(mesh) {}

  void start() override {}
  void finish() override {}
  void spin() override {}
  void setProgress(double value) override {
    ++visits_;
    if (next_) next_->setProgress(value);
  }
  bool isCancelled() override {
    if (!exceeded_ && (visits_ > kMaxVisits || mesh_.getPolygonCount() > kMaxPolygons)) {
      exceeded_ = true;
      mv::messageSink.error("render: the scene makes more than " + std::to_string(kMaxVisits) +
                            " objects or " + std::to_string(kMaxPolygons) +
                            " polygons; the rest is left out");
    }
    return exceeded_ || (next_ && next_->isCancelled());
  }

 private:
  static constexpr long kMaxVisits = 500000;
  static constexpr uint32_t kMaxPolygons = 10000000;
  mv::ProgressHandler* next_;
  const mv::MeshData& mesh_;
  long visits_ = 0;
  bool exceeded_ = false;
};

// The load passes over links to names that no object of the key frame has; say which.
void reportMissingLinks(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  mv::Chunk root;
  root.read(file);
  mv::MvrReader::KeyFrames keyFrames;
  for (const auto& [name, block] : root.children) {
    mv::MvrReader::scanBlock(name, *block, keyFrames, nullptr);
  }
  if (keyFrames.empty()) return;
  const auto& components = keyFrames.begin()->second.components;
  for (const auto& [name, component] : components) {
    for (const auto* links : {&component.children, &component.typeData.branches}) {
      for (const std::string& link : *links) {
        if (components.count(link)) continue;
        mv::messageSink.warning("\"" + name + "\" links \"" + link +
                                "\", which is no object of the scene: skipped");
      }
    }
  }
}

}  // namespace

void renderScene(const std::string& path, double unit, bool printTree, RenderedScene& out,
                 mv::PhaseTimes* times) {
  if (times) times->begin("load");
  reportMissingLinks(path);
  mv::SceneGraph graph;
  {
    mv::MvrSceneLoader loader(&graph);
    mv::ParameterSetData settings;
    loader.initParameters(settings, unit);
    out.loaded = loader.load(settings, path);
    out.materials = loader.materialsByIndex;
  }
  out.topObjects = static_cast<int>(graph.children().size());
  if (printTree) graph.printTree(0);
  if (times) times->begin("evaluation");
  mv::SelectionMesh selecting(out.mesh);
  {
    mv::OPolygonStream stream(&selecting, true);
    selecting.watch(&stream);
    WalkBudget budget(mv::progressSink.handler, out.mesh);
    mv::EHierarchyHelp help;
    help.progress = &budget;
    mv::progressSink.start();
    graph.evaluate(help, stream);
    stream.flush();
    mv::progressSink.finish();
  }
  selecting.watch(nullptr);
  selecting.finish();
  if (times) times->end();
}
