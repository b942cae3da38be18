#include "classic/TreePrune.h"

#include "classic/Node.h"
#include "classic/Solid.h"

namespace mv {

namespace {

// The first child whose simple is one of the four solids with an inside.
Node* clippingSolid(Node& prune, Solid*& solid) {
  for (Node* child : prune.children()) {
    Simple* simple = child->simple();
    std::string type;
    if (!simple) continue;
    simple->typeName(type);
    if (type != "Sphere" && type != "Cylinder" && type != "Cone" && type != "Box") continue;
    solid = dynamic_cast<Solid*>(simple);
    if (solid) return child;
  }
  return nullptr;
}

}  // namespace

void pruneFrames(BaseNode* pruneNode, const Matrix4& world, std::vector<TreeFrame>& frames) {
  Node* prune = dynamic_cast<Node*>(pruneNode);
  Solid* solid = nullptr;
  Node* child = prune ? clippingSolid(*prune, solid) : nullptr;
  if (!child) return;
  Matrix4 local;
  child->localMatrix(local);
  const Matrix4 toSolid = world.inverse() * local;
  for (size_t i = 1; i < frames.size(); ++i) {
    if (!solid->contains(child->parameters(),
                         toSolid.transformPoint(frames[i].matrix.position()))) {
      frames.erase(frames.begin() + static_cast<std::ptrdiff_t>(i) + 1, frames.end());
      return;
    }
  }
}

}  // namespace mv
