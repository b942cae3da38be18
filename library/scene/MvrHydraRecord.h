// MvrHydraRecord: the arguments of a Hydra converted from a classic hydra (a star) or wreath (a
// ring), under the Hydra's parameter names.
#pragma once

#include "curves/CurveParam.h"

namespace mv {

struct MvrHydraRecord {
  double number = 0.0;
  double radius = 0.0;
  bool numberFractional = false;
  CurveParam hydraSweep;
  CurveParam hydraTilt;
  int hydraMode = 0;  // 0 ring, 1 star
  CurveParam hydraSpin;
  CurveParam scale;
};

}  // namespace mv
