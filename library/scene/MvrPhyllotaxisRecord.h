// MvrPhyllotaxisRecord: the arguments of a Phyllotaxis converted from a classic phiball: the
// profile it spreads its elements over and its parameters under their own names.
#pragma once

#include <string>

#include "curves/CurveParam.h"

namespace mv {

struct MvrPhyllotaxisRecord {
  std::string profile;  // created name of the surface's profile
  double number = 0.0;
  CurveParam divergence;
  CurveParam scale;
  double spacingByScale = 1.0;
  bool numberFractional = false;
  bool showSurface = false;
  CurveParam tilt;
  bool followPath = true;
};

}  // namespace mv
