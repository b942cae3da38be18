// SolidCylinder: an open tube about z, centred on the origin, without caps; its inside test is
// that of the closed cylinder.
#pragma once

#include "classic/Solid.h"

namespace mv {

class SolidCylinder : public Solid {
 public:
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
  bool contains(ParameterSet& params, const Vector3& point) override;
};

}  // namespace mv
