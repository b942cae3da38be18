// PlacementGroup: the placements of one child role, and PlacementList, the groups of one
// evaluation in the order the node pushed them. One role may occur in several groups.
#pragma once

#include <vector>

#include "core/Placement.h"

namespace mv {

struct PlacementGroup {
  int role = 0;         // one ChildRole value
  bool closed = false;  // the spline segment this group was laid out along is closed
  std::vector<Placement> placements;
};

using PlacementList = std::vector<PlacementGroup>;

}  // namespace mv
