// MvrValue: the value forms of scene-file keyword lines and list blocks. Every reader is lenient:
// no form can fail, what cannot be read is 0, empty or the field's default.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "core/Vector3.h"
#include "scene/MvrLimitedTriple.h"
#include "scene/MvrRange.h"
#include "scene/MvrTriple.h"

namespace mv {

class Chunk;

class MvrValue {
 public:
  // Splits a keyword line: returns the text before the first blank, rest gets what follows.
  static std::string keyword(const std::string& line, std::string& rest);

  // The longest decimal number at the start of text after white space; 0 when there is none.
  static double real(const std::string& text);
  // As real, for integers; saturates at the limits of int.
  static int integer(const std::string& text);
  // A real cut towards zero to an int, saturating; NaN gives 0.
  static int wholeNumber(double value);
  // A real narrowed to single precision; beyond its range it becomes an infinity.
  static float single(double value);

  // true exactly when the trimmed rest is "TRUE".
  static bool boolean(const std::string& rest);
  // The first quoted text of rest, or empty.
  static std::string text(const std::string& rest);
  // {a,b,c}: a missing piece reads as 0.
  static MvrTriple triple(const std::string& rest);
  // a,b,c without braces.
  static Vector3 plainTriple(const std::string& rest);
  // {a,b,c} {d,e,f} {g,h,i}: one brace group per axis, each value, lower, upper.
  static MvrLimitedTriple limitedTriple(const std::string& rest);
  // start,end,"function",min,max: the first empty piece ends the reading, later fields keep the
  // values that range has.
  static void range(const std::string& rest, MvrRange& range);

  // Block of "Size n" followed by n lines "x,y,z"; fewer lines give fewer knots.
  static std::vector<Vector3> knots(const Chunk& block);
  // Block of quoted names, one a line.
  static std::set<std::string> names(const Chunk& block);
  // Block of lines of comma-separated hexadecimal masks "0x...", low 16 bits each.
  static std::vector<std::uint16_t> masks(const Chunk& block);

 private:
  static std::uint16_t mask(const std::string& piece);
};

}  // namespace mv
