#include "classic/SolidCone.h"

#include <cmath>

#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"

namespace mv {

bool SolidCone::initParameters(ParameterSet& params, double size) {
  params.setInt(IdSlices, 4);
  params.setInt(IdStacks, 4);
  params.setDouble(IdConeRadius, size / 2);
  params.setDouble(IdConeHeight, size);
  return true;
}

std::string& SolidCone::typeName(std::string& out) { return out = "Cone"; }

// The last row collapses to the apex: slices + 1 coincident points.
int SolidCone::evaluate(ParameterSet& params, OGeomStream& stream, int, PlacementList&, double) {
  const double radius = params.getDouble(IdConeRadius);
  const double height = params.getDouble(IdConeHeight);
  writeRevolution(params, stream, [=](double a, double v) {
    const double q = (1.0 - v) * radius;
    return Vector3{std::sin(a) * q, std::cos(a) * q, (v - 0.5) * height};
  });
  return RoleOther;
}

bool SolidCone::contains(ParameterSet& params, const Vector3& point) {
  return withinCylinder(point, params.getDouble(IdConeRadius), params.getDouble(IdConeHeight));
}

}  // namespace mv
