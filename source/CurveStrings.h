// CurveStrings: the texts of the curve type and its editor (names of sub-parameters, labels,
// menu entries), by their resource numbers 10028 to 10107: those of the host's resource folder,
// else the English ones built in, so that the editor speaks without a resource folder too.
#pragma once

#include <cstdint>
#include <string>

class CurveStrings {
 public:
  static constexpr int32_t kTypeName = 10028;

  // The text of a resource number; empty for a number that has none.
  static std::string text(int32_t number);

 private:
  static std::string builtIn(int32_t number);
};
