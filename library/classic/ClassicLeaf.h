// ClassicLeaf: a horn without standard elements. Its chain of turns and steps is bent by
// tropism, five times as strongly as a tree's, and its tip always closes to a point.
//
// Children: the first is the profile, the second the top element; every further child is placed
// once.
#pragma once

#include "classic/ClassicHorn.h"

namespace mv {

class ClassicLeaf : public ClassicHorn {
 public:
  // The tropism multiplier of a leaf.
  static constexpr double kTropismMultiplier = 5.0;

  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns the mask of the roles placed; 0, before any geometry, for a missing curve.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
};

}  // namespace mv
