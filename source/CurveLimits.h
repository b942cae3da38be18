// CurveLimits: how edits of a curve's values obey its fixed limits, the same in the editor and
// through sub-parameters: a value is held inside the limits that are fixed, and after an edit the
// limits that are free grow around the points.
#pragma once

#include "curves/CurveParam.h"

class CurveLimits {
 public:
  static bool bothFixed(const mv::CurveParam& curve) {
    return curve.isLowerLimitFixed() && curve.isUpperLimitFixed();
  }
  // With the upper limit fixed a value above it becomes the maximum; then with the lower limit
  // fixed a value below it becomes the minimum.
  static double clamp(const mv::CurveParam& curve, double value) {
    if (curve.isUpperLimitFixed() && value > curve.maximum()) value = curve.maximum();
    if (curve.isLowerLimitFixed() && value < curve.minimum()) value = curve.minimum();
    return value;
  }
  // growLimits, unless both limits are fixed.
  static void growFree(mv::CurveParam& curve) {
    if (!bothFixed(curve)) curve.growLimits();
  }
};
