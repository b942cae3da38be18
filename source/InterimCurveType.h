// InterimCurveType: curves in containers until the curve data type joins the plug-in: a curve
// value of type 1010405 that containers can copy and compare. It is neither stored in files nor
// shown as sub-parameters.
#pragma once

#include "curves/CurveParam.h"
#include "host/CustomDataType.h"
#include "host/HostTypes.h"

class InterimCurve : public CustomDataType, public mv::CurveParam {
 public:
  InterimCurve() = default;
  explicit InterimCurve(const mv::CurveParam& curve) : mv::CurveParam(curve) {}
};

// Registers the type under 1010405; false when that fails.
Bool RegisterInterimCurveType();
