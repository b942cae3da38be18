#include "classic/Box.h"

#include <cmath>

#include "classic/GridPatch.h"
#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"

namespace mv {

namespace {

// Turns the top face (+z) onto each face in turn: +z, +x, -z, -x by quarter turns about y, then
// +y and -y. The double-precision sines and cosines of those turns are part of the output.
Matrix4 faceRotation(int face) {
  if (face < 4) return Matrix4::rotationY(face * kHalfPi);
  return Matrix4::rotationX(face == 4 ? -kHalfPi : kHalfPi);
}

}  // namespace

bool Box::initParameters(ParameterSet& params, double) {
  params.setVector(IdBoxSize, {1, 1, 1});
  return true;
}

std::string& Box::typeName(std::string& out) { return out = "Box"; }

bool Box::assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) {
  return Simple::assignRoles(params, roles, childCount);
}

// Every face takes its width from sx, its height from sy and its offset from sz: only a cube,
// which is all the loaders make, is a closed box.
int Box::evaluate(ParameterSet& params, OGeomStream& stream, int, PlacementList&, double) {
  messageSink.debug("Box::evaluate");
  const int n = params.getInt(IdBoxResolution);
  const Vector3 size = params.getVector(IdBoxSize);
  for (int face = 0; face < 6; ++face) {
    const Matrix4 matrix = Matrix4::translation({0, 0, size.z / 2}) * faceRotation(face);
    GridPatch::write(stream, n, n, [&](int column, int row) {
      const Vector3 p{(0.5 - static_cast<double>(column) / n) * size.x,
                      ((1.0 - static_cast<double>(row) / n) - 0.5) * size.y, 0.0};
      return matrix.transformPoint(p);
    });
  }
  return RoleOther;
}

bool Box::contains(ParameterSet& params, const Vector3& point) {
  const Vector3 size = params.getVector(IdBoxSize);
  return std::fabs(point.x) <= std::fabs(size.x) / 2 && std::fabs(point.y) <= std::fabs(size.y) / 2;
}

}  // namespace mv
