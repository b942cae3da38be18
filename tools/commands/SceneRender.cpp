#include "SceneRender.h"

#include <fstream>

#include "Chunk.h"
#include "EHierarchyHelp.h"
#include "MessageSink.h"
#include "MvrReader.h"
#include "MvrSceneLoader.h"
#include "OPolygonStream.h"
#include "ParameterSetData.h"
#include "ProgressSink.h"
#include "SceneGraph.h"
#include "SelectionMesh.h"

namespace {

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

void renderScene(const std::string& path, double unit, bool printTree, RenderedScene& out) {
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
  mv::SelectionMesh selecting(out.mesh);
  {
    mv::OPolygonStream stream(&selecting, true);
    selecting.watch(&stream);
    mv::EHierarchyHelp help;
    mv::progressSink.start();
    graph.evaluate(help, stream);
    stream.flush();
    mv::progressSink.finish();
  }
  selecting.watch(nullptr);
  selecting.finish();
}
