#include "classic/SceneGraph.h"

namespace mv {

SceneGraph::SceneGraph() {
  setName("World");
  setSimple(new Simple());
}

SceneGraph::~SceneGraph() {
  for (Material* material : sceneMaterials_) delete material;
}

bool SceneGraph::addMaterial(Material* material) {
  if (!material) return false;
  sceneMaterials_.push_back(material);
  return true;
}

}  // namespace mv
