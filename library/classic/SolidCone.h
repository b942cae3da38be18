// SolidCone: an open cone about z, centred on the origin: coneRadius at the base
// (-z), a point at +z. It has no base disk.
#pragma once

#include "classic/Solid.h"

namespace mv {

class SolidCone : public Solid {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
  // The test of the cone's bounding cylinder: it does not narrow toward the point.
  bool contains(ParameterSet& params, const Vector3& point) override;
};

}  // namespace mv
