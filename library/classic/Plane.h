// Plane: a square of planeSize in the xy plane, or upright for the facings +y and -y, as a
// grid of slices by stacks cells.
#pragma once

#include "core/Simple.h"

namespace mv {

class Plane : public Simple {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool hasGeometry(ParameterSet& params) override;
  // Appends nothing: a primitive has no use for children.
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns 16 and places nothing, whatever roleMask says.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
};

}  // namespace mv
