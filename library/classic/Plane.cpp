#include "classic/Plane.h"

#include "classic/GridPatch.h"
#include "classic/SolidParameters.h"
#include "classic/detail/QuarterTurn.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"

namespace mv {

namespace {

constexpr double c = kQuarterTurnCosine;

// Only the facings +y and -y stand the plane up; every other value leaves it in the xy plane.
Matrix4 facingRotation(int facing) {
  if (facing == FacingPlusY) return Matrix4::fromRows({1, 0, 0}, {0, c, -1}, {0, 1, c}, {});
  if (facing == FacingMinusY) return Matrix4::fromRows({1, 0, 0}, {0, c, 1}, {0, -1, c}, {});
  return Matrix4();
}

}  // namespace

bool Plane::initParameters(ParameterSet& params, double size) {
  params.setInt(IdSlices, 1);
  params.setInt(IdStacks, 1);
  params.setDouble(IdPlaneSize, size);
  return true;
}

std::string& Plane::typeName(std::string& out) { return out = "Plane"; }

bool Plane::hasGeometry(ParameterSet&) { return true; }

bool Plane::assignRoles(ParameterSet&, std::vector<int>&, int) { return true; }

// Columns run from +x to -x, rows from -y to +y.
int Plane::evaluate(ParameterSet& params, OGeomStream& stream, int, PlacementList&, double) {
  const int slices = params.getInt(IdSlices);
  const int stacks = params.getInt(IdStacks);
  const double size = params.getDouble(IdPlaneSize);
  const Matrix4 facing = facingRotation(params.getInt(IdPlaneFacing));
  GridPatch::write(stream, slices, stacks, [&](int u, int v) {
    const Vector3 p{(0.5 - static_cast<double>(u) / slices) * size,
                    (static_cast<double>(v) / stacks - 0.5) * size, 0.0};
    return facing.transformPoint(p);
  });
  return RoleOther;
}

}  // namespace mv
