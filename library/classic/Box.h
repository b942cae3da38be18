// Box: a cube of six patches, one per face, each n by n cells. Its children all pass
// through: a box is the one primitive that may carry others.
#pragma once

#include "classic/Solid.h"

namespace mv {

class Box : public Solid {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Writes the six faces; returns 16 and places nothing, whatever roleMask says.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
  // Inside the x and y bounds of boxSize; z is not tested.
  bool contains(ParameterSet& params, const Vector3& point) override;
};

}  // namespace mv
