#include "classic/Sphere.h"

#include <cmath>

#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"

namespace mv {

bool Sphere::initParameters(ParameterSet& params, double size) {
  params.setInt(IdSlices, 4);
  params.setInt(IdStacks, 4);
  params.setDouble(IdSphereRadius, size / 2);
  return true;
}

std::string& Sphere::typeName(std::string& out) { return out = "Sphere"; }

// Rows run from the pole at -z to the pole at +z.
int Sphere::evaluate(ParameterSet& params, OGeomStream& stream, int, PlacementList&, double) {
  const double r = params.getDouble(IdSphereRadius);
  writeRevolution(params, stream, [r](double a, double v) {
    const double l = (v - 0.5) * kPi;
    return Vector3{std::sin(a) * r * std::cos(l), std::cos(a) * r * std::cos(l), r * std::sin(l)};
  });
  return RoleOther;
}

bool Sphere::contains(ParameterSet& params, const Vector3& point) {
  return point.length() <= params.getDouble(IdSphereRadius);
}

}  // namespace mv
