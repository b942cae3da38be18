// TreePrune: clips the frames of a classic tree by the solid of an enclosing prune object: the
// trunk ends at the first frame that leaves the solid.
#pragma once

#include <vector>

#include "classic/TreeFrame.h"

namespace mv {

class BaseNode;

// pruneNode is the prune object (id 1120) or null; world the tree's matrix of id 1004. Looks for
// the prune's first child that is a sphere, cylinder, cone or box and erases every frame after
// the first one (from the second on) whose position lies outside it.
void pruneFrames(BaseNode* pruneNode, const Matrix4& world, std::vector<TreeFrame>& frames);

}  // namespace mv
