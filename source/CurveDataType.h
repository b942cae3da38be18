// CurveDataType: a curve as a value of the host: what a container holds under a curve parameter.
// It is the library's curve, so whoever reads the parameter uses it as an mv::CurveParam.
#pragma once

#include "curves/CurveParam.h"
#include "host/CustomDataType.h"
#include "host/HostTypes.h"

constexpr Int32 CURVE_TYPE_ID = 1010405;
constexpr Int32 CURVE_GUI_ID = 1010406;
// The "UNIT" and "FIXEDLIMITS" properties of a curve parameter's settings.
constexpr Int32 CURVE_UNIT = 1000;
constexpr Int32 CURVE_FIXEDLIMITS = 1001;

class CurveDataType : public CustomDataType, public mv::CurveParam {
 public:
  CurveDataType() = default;
  explicit CurveDataType(const mv::CurveParam& curve) : mv::CurveParam(curve) {}
};
