// AttractorPrim: the carrier of the three attractor values (centre, strength, mode), which an
// attractor node reads from its child. It writes nothing.
#pragma once

#include "core/Simple.h"

namespace mv {

class AttractorPrim : public Simple {
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
