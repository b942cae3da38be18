// MvrCurvatureRecord: the arguments of a curvature spline converted from the turn and move curves
// of a classic horn or leaf, under the curvature spline's parameter names.
#pragma once

#include "curves/CurveParam.h"

namespace mv {

struct MvrCurvatureRecord {
  double curvSteps = 20.0;
  bool curvFractional = false;
  double curvScaleZ = 1.0;
  double curvLength = 1.0;
  CurveParam curv_rota_x;
  CurveParam curv_rota_y;
  CurveParam curv_rota_z;
  CurveParam curv_tran_x;
  CurveParam curv_tran_y;
  CurveParam curv_tran_z;
};

}  // namespace mv
