// CurveSubValue: one part of a curve as the host reads or sets it, a real, an integer or a text.
// It stands for the host's variant value so that the sub-parameter table runs without the host.
#pragma once

#include <cstdint>
#include <string>

struct CurveSubValue {
  enum Kind { None, Real, Integer, Text };

  Kind kind = None;
  double real = 0.0;
  int32_t integer = 0;
  std::string text;

  static CurveSubValue ofReal(double value);
  static CurveSubValue ofInteger(int32_t value);
  static CurveSubValue ofText(const std::string& value);

  // The value as a real (an integer converts, anything else is 0).
  double asReal() const;
  // The value as an integer, a real cut toward zero and held inside the int32 range (NaN is 0).
  int32_t asInteger() const;
};
