// Sphere: a sphere about the origin, slices around z and stacks from pole to pole.
// Both poles are full rows of coincident points.
#pragma once

#include "classic/Solid.h"

namespace mv {

class Sphere : public Solid {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
  // Within sphereRadius of the origin.
  bool contains(ParameterSet& params, const Vector3& point) override;
};

}  // namespace mv
