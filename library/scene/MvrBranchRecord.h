// MvrBranchRecord: the arguments of a converted Branch: its profile and path objects and the
// growth parameters that the conversion of a classic tree, horn, leaf or revo computed for it.
// Field names are the Branch's parameter names.
#pragma once

#include <string>

#include "curves/CurveParam.h"

namespace mv {

struct MvrBranchRecord {
  std::string profile;  // created name of the cross-section; may be empty
  std::string path;     // created name of the path spline
  double pathGrowth = 1.0;
  bool pathGrowthInherited = false;
  bool thicknessInherited = false;
  bool nodeThicknessCurved = false;
  CurveParam thickness;
  double nodeNumber = 0.0;
  bool pairedNodes = true;  // true: two nodes per whorl, false: one
  bool nodeNumberInherited = false;
  CurveParam nodeAngle;
  bool nodeGrowthCurved = false;
  CurveParam nodeGrowth;
  CurveParam nodeFlap;
  CurveParam nodeDistribution;
  CurveParam nodeScale;
  CurveParam nodeScrew;
  bool nodeDensityCurved = false;
  CurveParam nodeDensity;
  int nodeArrangement = 0;
};

}  // namespace mv
