#include "commands/SceneRender.h"

#include "classic/MeshRender.h"
#include "classic/SceneGraph.h"
#include "curves/ParameterSetData.h"
#include "export/PhaseTimes.h"
#include "scene/MvrSceneLoader.h"

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
  if (printTree) graph.printTree(0);
  if (times) times->begin("evaluation");
  mv::renderMesh(graph, out.mesh);
  if (times) times->end();
}
