// ClassicTree: the stem generator of the classic scene files. In one evaluation it lays out
// branch knots, builds a trunk polyline that kinks at the knots and wanders between them, walks
// it to a chain of frames, bends the chain by tropism, leans it toward the light, clips it by an
// enclosing prune solid, sweeps the profile along it and places the branches at the knots and
// the top element at the end. The version of the scene file selects older behaviours.
//
// Children: the first is the profile, the second the standard branch, the third the top
// element; every further child is placed once.
#pragma once

#include <vector>

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"
#include "classic/ClassicSpline.h"

namespace mv {

class ClassicTree : public ClassicSimple {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool hasGeometry(ParameterSet& params) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns the OR of the roles placed (4, 8, 16 as roleMask asks); 0 for a missing curve, a
  // growth below 1e-8 or a trunk without samples.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  ClassicSpline path;  // no keys: the trunk grows straight up z
};

}  // namespace mv
