// ClassicWreath: a classic arranger that places copies of its first child on a circle about the
// node's z axis, each with its y axis pointing outward, starting at +y and running toward +x.
// Further children are placed once.
#pragma once

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"

namespace mv {

class ClassicWreath : public ClassicSimple {
 public:
  // Elements beyond this count only come from broken files.
  static constexpr int kMaxElements = 250000;

  // number 8, radius size / 2.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
};

}  // namespace mv
