// CurveSubParameters: the parts of a curve as numbered sub-parameters, so that the host can list,
// read and set them one by one (and animate them).
//
// 1000 the expression text, 1001 minimum, 1002 maximum; for the point with id i,
// 1200 + 10 * i + k with k 0 x, 1 y, 2 type, 3 in x - x, 4 in y - y, 5 out x - x, 6 out y - y.
// Control points appear relative to their point; the number names the point by its stable id.
#pragma once

#include <cstdint>

#include "curves/CurveParam.h"
#include "source/CurveSubValue.h"

class CurveSubParameters {
 public:
  static constexpr int32_t kExpression = 1000;  // CURVE_EXPRESSION
  static constexpr int32_t kMinimum = 1001;     // CURVE_MINIMUM
  static constexpr int32_t kMaximum = 1002;     // CURVE_MAXIMUM
  static constexpr int32_t kPointBase = 1200;   // CURVE_POINT_BASE

  // The number of field k (0 to 6) of the point with that id.
  static int32_t pointNumber(int32_t id, int32_t field) { return kPointBase + 10 * id + field; }

  // False when number names no part of this curve.
  static bool get(const mv::CurveParam& curve, int32_t number, CurveSubValue& value);
  // False when number names no part of this curve. A change the curve refuses leaves it as it
  // was and still counts as matched. A y is held inside the fixed limits; a free limit grows.
  static bool set(mv::CurveParam& curve, int32_t number, const CurveSubValue& value);

 private:
  // The point that number belongs to, with the field; null when none.
  static const mv::CurvePoint* pointOf(const mv::CurveParam& curve, int32_t number, int32_t& field);
  static double pointField(const mv::CurvePoint& point, int32_t field);
  static void setPointField(mv::CurveParam& curve, mv::CurvePoint point, int32_t field,
                            double value);
  static void setControl(mv::CurveParam& curve, mv::CurvePoint point, int32_t field, double value);
};
