#include "source/CurveSubParameters.h"

#include <algorithm>

#include "source/CurveLimits.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

enum PointField { FieldX, FieldY, FieldType, FieldInX, FieldInY, FieldOutX, FieldOutY };

}  // namespace

const CurvePoint* CurveSubParameters::pointOf(const CurveParam& curve, int32_t number,
                                              int32_t& field) {
  for (int index = 0; index < curve.getPointCount(); ++index) {
    const CurvePoint* point = curve.getPoint(index);
    const int64_t offset = int64_t{number} - (kPointBase + int64_t{10} * point->id);
    if (offset >= FieldX && offset <= FieldOutY) {
      field = static_cast<int32_t>(offset);
      return point;
    }
  }
  return nullptr;
}

double CurveSubParameters::pointField(const CurvePoint& point, int32_t field) {
  switch (field) {
    case FieldX:
      return point.x;
    case FieldY:
      return point.y;
    case FieldInX:
      return point.inX - point.x;
    case FieldInY:
      return point.inY - point.y;
    case FieldOutX:
      return point.outX - point.x;
    default:
      return point.outY - point.y;
  }
}

bool CurveSubParameters::get(const CurveParam& curve, int32_t number, CurveSubValue& value) {
  if (number == kExpression) {
    std::string text;
    curve.getExpression(text);
    value = CurveSubValue::ofText(text);
  } else if (number == kMinimum || number == kMaximum) {
    value = CurveSubValue::ofReal(number == kMinimum ? curve.minimum() : curve.maximum());
  } else {
    int32_t field = 0;
    const CurvePoint* point = number >= kPointBase ? pointOf(curve, number, field) : nullptr;
    if (!point) return false;
    value = field == FieldType ? CurveSubValue::ofInteger(point->type)
                               : CurveSubValue::ofReal(pointField(*point, field));
  }
  return true;
}

bool CurveSubParameters::set(CurveParam& curve, int32_t number, const CurveSubValue& value) {
  if (number == kExpression) {
    curve.setExpression(value.text);
  } else if (number == kMinimum) {
    curve.setMinimum(value.asReal());
  } else if (number == kMaximum) {
    curve.setMaximum(value.asReal());
  } else {
    int32_t field = 0;
    const CurvePoint* point = number >= kPointBase ? pointOf(curve, number, field) : nullptr;
    if (!point) return false;
    if (field == FieldType) {
      curve.setPointType(point->id, std::clamp(value.asInteger(), 0, 3));
    } else {
      setPointField(curve, *point, field, value.asReal());
    }
  }
  return true;
}

void CurveSubParameters::setPointField(CurveParam& curve, CurvePoint point, int32_t field,
                                       double value) {
  if (field == FieldX) {
    curve.setPointX(point.id, value);
  } else if (field == FieldY) {
    curve.setPointY(point.id, CurveLimits::clamp(curve, value));
    CurveLimits::growFree(curve);
  } else {
    setControl(curve, point, field, value);
  }
}

// A control point set relative to its point; a mirrored point's other control follows.
void CurveSubParameters::setControl(CurveParam& curve, CurvePoint point, int32_t field,
                                    double value) {
  const bool in = field == FieldInX || field == FieldInY;
  double& controlX = in ? point.inX : point.outX;
  double& controlY = in ? point.inY : point.outY;
  if (field == FieldInX || field == FieldOutX) {
    controlX = point.x + value;
  } else {
    controlY = CurveLimits::clamp(curve, point.y + value);
  }
  if (point.type == mv::PointMirrored) {
    (in ? point.outX : point.inX) = 2.0 * point.x - controlX;
    (in ? point.outY : point.inY) = 2.0 * point.y - controlY;
  }
  curve.setPoint(point, false);
}
