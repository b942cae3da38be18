// CurveStrings: the texts of the curve type and its editor (names of sub-parameters, labels,
// menu entries), by their resource numbers 10028 to 10107.
#pragma once

#include <cstdint>
#include <string>

class CurveStrings {
 public:
  static constexpr int32_t kTypeName = 10028;

  // The text of a resource number; empty for a number that has none.
  static std::string text(int32_t number);
};
