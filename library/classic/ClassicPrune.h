// ClassicPrune: marks a subtree in which classic trees stop their branches at a primitive. The
// children before the last only describe the volume and are never built; the last child is the
// pruned content, placed once. The stopping itself is done by the trees below.
#pragma once

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"

namespace mv {

class ClassicPrune : public ClassicSimple {
 public:
  std::string& typeName(std::string& out) override;
  // Role 0 for every child but the last, which gets role 16.
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
};

}  // namespace mv
