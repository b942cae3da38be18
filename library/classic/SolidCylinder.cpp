#include "classic/SolidCylinder.h"

#include <cmath>

#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"

namespace mv {

bool SolidCylinder::initParameters(ParameterSet& params, double size) {
  params.setInt(IdSlices, 8);
  params.setInt(IdStacks, 4);
  params.setDouble(IdCylinderRadius, size / 2);
  params.setDouble(IdCylinderHeight, size);
  return true;
}

std::string& SolidCylinder::typeName(std::string& out) { return out = "Cylinder"; }

int SolidCylinder::evaluate(ParameterSet& params, OGeomStream& stream, int, PlacementList&,
                            double) {
  const double radius = params.getDouble(IdCylinderRadius);
  const double height = params.getDouble(IdCylinderHeight);
  writeRevolution(params, stream, [=](double a, double v) {
    return Vector3{std::sin(a) * radius, std::cos(a) * radius, (v - 0.5) * height};
  });
  return RoleOther;
}

bool SolidCylinder::contains(ParameterSet& params, const Vector3& point) {
  return withinCylinder(point, params.getDouble(IdCylinderRadius),
                        params.getDouble(IdCylinderHeight));
}

}  // namespace mv
