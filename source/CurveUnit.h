// CurveUnit: the unit of a curve's y values, the "UNIT" property of a curve parameter. It decides
// the host's number format of the value fields and the text of a value in the editor.
#pragma once

#include <cstdint>
#include <string>

#include "host/FourCharCode.h"

enum CurveUnit : int32_t {
  UnitNone = 0,  // any value other than the three below
  UnitPercent = 1,
  UnitDegree = 2,
  UnitMeter = 3,
};

// The unit of a stored "UNIT" value; unknown values are UnitNone.
CurveUnit curveUnitOf(int32_t value);
// The host's number format: 'fpct', 'fdgr', 'fmet' or 'frea'.
int32_t curveUnitCode(int32_t unit);
// A y value as the editor shows it: "50 %" for 0.5 in percent, "90°" for pi / 2 in degrees,
// "2 m" in meters, the number alone otherwise.
std::string curveValueText(int32_t unit, double y);
// A number as the host converts it by default: at most three decimals, no trailing zeros.
std::string curveNumberText(double value);
