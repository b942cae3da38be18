// CurveComparison: whether two curves differ, as the host asks when it decides that a parameter
// changed. Ids take no part; expressions are equal only when they share one tree; a NaN anywhere
// makes a difference, so a curve holding one differs even from itself.
#pragma once

#include "curves/CurveParam.h"

class CurveComparison {
 public:
  // 0 when equal (or when either is null), 1 when different.
  static int compare(const mv::CurveParam* a, const mv::CurveParam* b);

 private:
  static bool samePoint(const mv::CurvePoint& a, const mv::CurvePoint& b);
  static bool sameReal(double a, double b) { return a == b; }
};
