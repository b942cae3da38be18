// ClassicHydra: a classic arranger that writes no geometry and places copies of its first child,
// each turned about its own axis (spin), about the node's axis (twist), tilted (fan) and scaled,
// all read from curves over the element sequence. Further children are placed once.
#pragma once

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"

namespace mv {

class ClassicHydra : public ClassicSimple {
 public:
  // Elements beyond this count only come from broken files.
  static constexpr int kMaxElements = 250000;

  // number 8, spin and twist 0, fan from -pi to pi, scale 1.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns 0 for a missing curve.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
};

}  // namespace mv
