// ClassicRevo: a surface of revolution. A list of (radius, height) points stacks rings of the
// profile (the first child) straight along z, each scaled by its radius. Further children are
// placed once.
#pragma once

#include <vector>

#include "classic/ClassicSimple.h"
#include "core/Vector3.h"

namespace mv {

class ClassicRevo : public ClassicSimple {
 public:
  std::string& typeName(std::string& out) override;
  bool hasGeometry(ParameterSet& params) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Returns 0 for a missing displace curve; without a profile it writes nothing.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  std::vector<Vector3> points;  // x the ring's radius, z its height, first ring first
};

}  // namespace mv
