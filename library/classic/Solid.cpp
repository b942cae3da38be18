#include "classic/Solid.h"

#include <cmath>

#include "classic/GridPatch.h"
#include "classic/SolidParameters.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"

namespace mv {

bool Solid::hasGeometry(ParameterSet&) { return true; }

bool Solid::assignRoles(ParameterSet&, std::vector<int>&, int) { return true; }

void Solid::writeRevolution(ParameterSet& params, OGeomStream& stream,
                            const RevolutionPoint& point) {
  const int slices = params.getInt(IdSlices);
  const int stacks = params.getInt(IdStacks);
  GridPatch::write(stream, slices, stacks, [&](int u, int v) {
    const double a = -(static_cast<double>(u) / slices) * kTwoPi;
    return point(a, static_cast<double>(v) / stacks);
  });
}

bool Solid::withinCylinder(const Vector3& point, double radius, double height) {
  return std::fabs(point.z) <= std::fabs(height) / 2 && std::hypot(point.x, point.y) <= radius;
}

}  // namespace mv
