#include "commands/SceneRender.h"

#include <iostream>

#include "classic/MeshRender.h"
#include "classic/SceneGraph.h"
#include "console/HandlerScope.h"
#include "curves/ParameterSetData.h"
#include "export/PhaseTimes.h"
#include "scene/MvrSceneLoader.h"

namespace {

// Sends the plain lines of the library (the printed tree) to standard output, where a user who
// asked for them reads them, and everything else to the handler that was in place.
class PlainLinesToOutput : public mv::MessageHandler {
 public:
  explicit PlainLinesToOutput(mv::MessageHandler* next) : next_(next) {}

  void error(const std::string& text) override {
    if (next_) next_->error(text);
  }
  void warning(const std::string& text) override {
    if (next_) next_->warning(text);
  }
  void info(const std::string& text) override {
    if (next_) next_->info(text);
  }
  void debug(const std::string& text) override {
    if (next_) next_->debug(text);
  }
  void print(const std::string& text) override { std::cout << text << '\n'; }

 private:
  mv::MessageHandler* next_;
};

void printGraph(mv::SceneGraph& graph) {
  PlainLinesToOutput lines(mv::messageSink.handler);
  HandlerScope scope(&lines, mv::progressSink.handler);
  graph.printTree(0);
}

}  // namespace

void renderScene(const std::string& path, double unit, bool printTree, RenderedScene& out,
                 mv::PhaseTimes* times) {
  if (times) times->begin("load");
  mv::SceneGraph graph;
  {
    mv::MvrSceneLoader loader(&graph);
    mv::ParameterSetData settings;
    loader.initParameters(settings, unit);
    out.loaded = loader.load(settings, path);
    out.materials = loader.materialsByIndex;
    out.skipped = loader.skipped;
  }
  out.topObjects = static_cast<int>(graph.children().size());
  if (printTree) printGraph(graph);
  if (times) times->begin("evaluation");
  mv::renderMesh(graph, out.mesh);
  if (times) times->end();
}
