#include "source/CurveUnit.h"

#include <cstdio>

#include "core/MathConstants.h"

CurveUnit curveUnitOf(int32_t value) {
  switch (value) {
    case UnitPercent:
    case UnitDegree:
    case UnitMeter:
      return static_cast<CurveUnit>(value);
    default:
      return UnitNone;
  }
}

int32_t curveUnitCode(int32_t unit) {
  switch (curveUnitOf(unit)) {
    case UnitPercent:
      return fourCharCode("fpct");
    case UnitDegree:
      return fourCharCode("fdgr");
    case UnitMeter:
      return fourCharCode("fmet");
    default:
      return fourCharCode("frea");
  }
}

std::string curveNumberText(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.3f", value);
  std::string result = text;
  if (result.find('.') == std::string::npos) return result;  // inf, nan
  while (result.back() == '0') result.pop_back();
  if (result.back() == '.') result.pop_back();
  return result == "-0" ? "0" : result;
}

std::string curveValueText(int32_t unit, double y) {
  switch (curveUnitOf(unit)) {
    case UnitPercent:
      return curveNumberText(y * 100.0) + " %";
    case UnitDegree:
      return curveNumberText(y / mt::kPi * 180.0) + "\xC2\xB0";
    case UnitMeter:
      return curveNumberText(y) + " m";
    default:
      return curveNumberText(y);
  }
}
