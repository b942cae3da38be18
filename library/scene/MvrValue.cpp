#include "scene/MvrValue.h"

#include <algorithm>
#include <cctype>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <limits>

#include "scene/Chunk.h"

namespace mv {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t skipWhite(const std::string& text) {
  std::size_t at = 0;
  while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at]))) ++at;
  return at;
}

std::size_t skipDigits(const std::string& text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

// number := [+-] (digits [. digits] | . digits) [(e|E) [+-] digits]; returns the end of the
// longest such prefix from begin, or begin when there is none.
std::size_t scanReal(const std::string& text, std::size_t begin) {
  std::size_t end = begin;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  const std::size_t integerBegin = end;
  end = skipDigits(text, end);
  bool hasDigits = end > integerBegin;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fractionEnd = skipDigits(text, end + 1);
    if (hasDigits || fractionEnd > end + 1) {
      hasDigits = true;
      end = fractionEnd;
    }
  }
  if (!hasDigits) return begin;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t exponentEnd = skipDigits(text, exponent);
    if (exponentEnd > exponent) end = exponentEnd;
  }
  return end;
}

double parseReal(const std::string& text, std::size_t begin, std::size_t end) {
  if (text[begin] == '+') ++begin;  // from_chars takes no plus sign
  double value = 0.0;
  const auto result = std::from_chars(text.data() + begin, text.data() + end, value);
  if (result.ec == std::errc::result_out_of_range)  // strtod saturates to infinity or zero
    value = std::strtod(text.substr(begin, end - begin).c_str(), nullptr);
  return value;
}

void readPieces(std::string text, double* values, int count) {
  for (int i = 0; i < count; ++i) values[i] = MvrValue::real(Chunk::cutAt(text, ','));
}

}  // namespace

std::string MvrValue::keyword(const std::string& line, std::string& rest) {
  rest = line;
  return Chunk::cutAt(rest, ' ');
}

double MvrValue::real(const std::string& text) {
  const std::size_t begin = skipWhite(text);
  const std::size_t end = scanReal(text, begin);
  return end > begin ? parseReal(text, begin, end) : 0.0;
}

int MvrValue::integer(const std::string& text) {
  std::size_t at = skipWhite(text);
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  long long value = 0;
  for (; at < text.size() && isDigit(text[at]); ++at) {
    value = value * 10 + (text[at] - '0');
    if (value > static_cast<long long>(INT_MAX) + 1) break;
  }
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

int MvrValue::wholeNumber(double value) {
  if (value != value) return 0;
  if (value >= static_cast<double>(INT_MAX)) return INT_MAX;
  if (value <= static_cast<double>(INT_MIN)) return INT_MIN;
  return static_cast<int>(value);
}

float MvrValue::single(double value) {
  if (value > FLT_MAX) return std::numeric_limits<float>::infinity();
  if (value < -FLT_MAX) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

bool MvrValue::boolean(const std::string& rest) { return Chunk::trim(rest) == "TRUE"; }

std::string MvrValue::text(const std::string& rest) {
  std::string copy = rest;
  return Chunk::cutQuoted(copy);
}

MvrTriple MvrValue::triple(const std::string& rest) {
  std::string copy = rest;
  double values[3];
  readPieces(Chunk::cutBraced(copy), values, 3);
  return {values[0], values[1], values[2]};
}

Vector3 MvrValue::plainTriple(const std::string& rest) {
  double values[3];
  readPieces(rest, values, 3);
  return {values[0], values[1], values[2]};
}

// Piece j of group i is row j, column i.
MvrLimitedTriple MvrValue::limitedTriple(const std::string& rest) {
  std::string copy = rest;
  double rows[3][3];
  for (int axis = 0; axis < 3; ++axis) {
    double values[3];
    readPieces(Chunk::cutBraced(copy), values, 3);
    for (int row = 0; row < 3; ++row) rows[row][axis] = values[row];
  }
  auto vector = [&rows](int row) { return Vector3(rows[row][0], rows[row][1], rows[row][2]); };
  return {vector(0), vector(1), vector(2)};
}

void MvrValue::range(const std::string& rest, MvrRange& range) {
  std::string copy = rest;
  double* const numbers[] = {&range.start, &range.end, nullptr, &range.min, &range.max};
  for (double* field : numbers) {
    std::string piece = Chunk::cutAt(copy, ',');
    if (piece.empty()) return;
    if (field)
      *field = real(piece);
    else
      range.function = Chunk::cutQuoted(piece);
  }
}

std::vector<Vector3> MvrValue::knots(const Chunk& block) {
  std::vector<Vector3> result;
  if (block.lines.empty()) return result;
  std::string rest;
  if (keyword(block.lines.front(), rest) != "Size") return result;
  const int size = integer(rest);
  if (size < 1) return result;
  // Only the lines that exist are read: a huge Size allocates nothing ahead.
  const std::size_t count = std::min<std::size_t>(size, block.lines.size() - 1);
  result.reserve(count);
  for (std::size_t i = 1; i <= count; ++i) result.push_back(plainTriple(block.lines[i]));
  return result;
}

std::set<std::string> MvrValue::names(const Chunk& block) {
  std::set<std::string> result;
  for (const std::string& line : block.lines) {
    std::string trimmed = Chunk::trim(line);
    result.insert(Chunk::cutQuoted(trimmed));
  }
  return result;
}

std::vector<std::uint16_t> MvrValue::masks(const Chunk& block) {
  std::vector<std::uint16_t> result;
  for (const std::string& line : block.lines) {
    std::string rest = line;
    while (!rest.empty()) result.push_back(mask(Chunk::cutAt(rest, ',')));
  }
  return result;
}

// "0x" followed by hexadecimal digits of either case; anything else is 0.
std::uint16_t MvrValue::mask(const std::string& piece) {
  if (piece.size() < 3 || piece[0] != '0' || piece[1] != 'x') return 0;
  unsigned value = 0;
  for (std::size_t at = 2; at < piece.size(); ++at) {
    const unsigned char c = static_cast<unsigned char>(piece[at]);
    if (!std::isxdigit(c)) break;
    const unsigned digit = isDigit(c) ? c - '0' : std::tolower(c) - 'a' + 10;
    value = ((value << 4) | digit) & 0xffffu;
  }
  return static_cast<std::uint16_t>(value);
}

}  // namespace mv
