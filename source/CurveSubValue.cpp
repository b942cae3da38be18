#include "source/CurveSubValue.h"

#include <cmath>
#include <limits>

CurveSubValue CurveSubValue::ofReal(double value) {
  CurveSubValue result;
  result.kind = Real;
  result.real = value;
  return result;
}

CurveSubValue CurveSubValue::ofInteger(int32_t value) {
  CurveSubValue result;
  result.kind = Integer;
  result.integer = value;
  return result;
}

CurveSubValue CurveSubValue::ofText(const std::string& value) {
  CurveSubValue result;
  result.kind = Text;
  result.text = value;
  return result;
}

double CurveSubValue::asReal() const {
  if (kind == Real) return real;
  return kind == Integer ? integer : 0.0;
}

int32_t CurveSubValue::asInteger() const {
  if (kind == Integer) return integer;
  if (kind != Real || std::isnan(real)) return 0;
  constexpr double low = std::numeric_limits<int32_t>::min();
  constexpr double high = std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(std::fmax(low, std::fmin(high, std::trunc(real))));
}
