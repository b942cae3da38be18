// SceneGraph: the root of a loaded scene, a node named "World" with a plain Simple that places
// each child once where it stands. It also owns the materials that the loader met.
#pragma once

#include <vector>

#include "classic/Material.h"
#include "classic/Node.h"

namespace mv {

class SceneGraph : public Node {
 public:
  SceneGraph();
  ~SceneGraph() override;

  // Takes ownership; false for null.
  bool addMaterial(Material* material);
  const std::vector<Material*>& sceneMaterials() const { return sceneMaterials_; }

 private:
  std::vector<Material*> sceneMaterials_;
};

}  // namespace mv
