// Disk: a flat disk of a scene file. It only stores its radius: a disk leaves no surface.
#pragma once

#include "core/Simple.h"

namespace mv {

class Disk : public Simple {
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
