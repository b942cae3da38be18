#include "classic/ClassicSimple.h"

#include "classic/PhotoTurn.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

bool ClassicSimple::initParameters(ParameterSet& params, double size) {
  params.setDouble(IdUnit, size);
  params.setInt(IdPhotoAxis, 0);
  params.setInt(IdPhotoMode, 0);
  params.setDouble(IdPhotoStrength, 1.0);
  params.setCurve(IdDisplace, CurveParam(0.0, 1.0, 0.0, 0.0, "id"));
  return true;
}

std::string& ClassicSimple::typeName(std::string& out) { return out = "ClassicSimple"; }

// The matrix inverse of Matrix4 gives the identity for a singular matrix, as the frames need.
int ClassicSimple::evaluate(ParameterSet& params, OGeomStream&, int roleMask,
                            PlacementList& placements, double) {
  if (!(roleMask & RoleOther)) return 0;
  const Matrix4 local = params.getMatrix(IdLocalMatrix);
  const Matrix4 localInverse = local.inverse();
  const Matrix4 frame = params.getMatrix(IdWorldMatrix).inverse() * local;
  Matrix4 correction;
  photoCorrection(correction, params, frame);
  PlacementGroup group;
  group.role = RoleOther;
  group.placements.emplace_back();
  group.placements.back().matrix = localInverse * correction * local;
  placements.push_back(std::move(group));
  return RoleOther;
}

Matrix4& ClassicSimple::photoCorrection(Matrix4& out, ParameterSet& params, const Matrix4& matrix) {
  return out = photoTurn(matrix, params.getInt(IdPhotoAxis), params.getDouble(IdPhotoStrength),
                         params.getInt(IdPhotoMode));
}

}  // namespace mv
