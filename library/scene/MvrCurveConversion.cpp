#include "scene/MvrCurveConversion.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/MathConstants.h"
#include "core/MessageSink.h"

namespace mv {

namespace {

struct Term {
  std::string text;
  bool bracketed;
};

bool isWhite(char c) { return c != '\0' && std::strchr(" \t\n\v\f\r", c) != nullptr; }

// The variables of the classic syntax take the form name(x); each becomes one letter.
const char* classicVariable(const std::string& word) {
  static const std::pair<const char*, const char*> kVariables[] = {
      {"frame", "f"}, {"ftime", "a"}, {"iter", "i"}, {"chdrn", "n"}, {"rec", "0"}};
  for (const auto& [name, letter] : kVariables)
    if (word == name) return letter;
  return nullptr;
}

// terms := { "(" text up to the matching ")" | operator | word }
std::vector<Term> splitTerms(const std::string& input) {
  std::vector<Term> terms;
  std::string word;
  const auto flushWord = [&]() {
    if (!word.empty()) terms.push_back({word, false});
    word.clear();
  };
  for (std::size_t at = 0; at < input.size(); ++at) {
    const char c = input[at];
    if (c == '(') {
      flushWord();
      std::size_t end = at + 1;
      for (int depth = 1; end < input.size(); ++end) {
        if (input[end] == '(') ++depth;
        if (input[end] == ')' && --depth == 0) break;
      }
      terms.push_back({input.substr(at + 1, end - at - 1), true});
      at = end;
    } else if (c == '*' || c == '+' || c == '-' || c == '/') {
      flushWord();
      terms.push_back({std::string(1, c), false});
    } else {
      word += c;
    }
  }
  flushWord();
  return terms;
}

std::vector<Vector3> usableKnots(const std::vector<Vector3>& knots) {
  if (knots.size() <= MvrCurveConversion::kMaxCurveKnots) return knots;
  messageSink.warning("Knot list of " + std::to_string(knots.size()) + " knots cut to " +
                      std::to_string(MvrCurveConversion::kMaxCurveKnots));
  return {knots.begin(), knots.begin() + MvrCurveConversion::kMaxCurveKnots};
}

CurveParam constantOne(double minimum, double maximum) {
  return CurveParam(minimum, maximum, 1.0, 1.0, "id");
}

}  // namespace

// Every recursive call works on a strictly shorter text, so the depth stays below its length.
std::string MvrCurveConversion::translateFunction(const std::string& text) {
  const std::string input(text.begin(), std::find_if(text.begin(), text.end(), isWhite));
  const std::vector<Term> terms = splitTerms(input);
  std::string output;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    const Term& term = terms[i];
    if (const char* letter = term.bracketed ? nullptr : classicVariable(term.text)) {
      output += letter;
      ++i;  // the "(x)" behind the variable
      continue;
    }
    const std::string translated = term.text != input ? translateFunction(term.text) : term.text;
    output += term.bracketed ? "(" + translated + ")" : translated;
  }
  return output;
}

CurveParam MvrCurveConversion::curveOf(const MvrRange& range) {
  if ((range.function == "cos" || range.function == "cos(x)") && range.start == 0.0 &&
      range.end == 0.0)
    return constantOne(-1.0, 2.0);
  return CurveParam(range.min, range.max, range.start, range.end,
                    translateFunction(range.function));
}

CurveParam MvrCurveConversion::directCurveOf(const MvrRange& range) {
  return CurveParam(range.min, range.max, range.start, range.end, range.function);
}

std::map<double, double> MvrCurveConversion::knotCurve(const std::vector<Vector3>& allKnots,
                                                       bool flatten) {
  const std::vector<Vector3> knots = usableKnots(allKnots);
  std::map<double, double> keys;
  if (knots.empty()) return keys;
  const double y = knots.front().y;
  const bool flat = std::all_of(knots.begin(), knots.end(), [y](const Vector3& k) {
    return std::fabs(k.y - y) <= kZeroTolerance;
  });
  if (flatten && flat) return {{0.0, y}, {1.0, y}};
  for (const Vector3& knot : knots) keys[knot.x] = knot.y;
  return keys;
}

CurveParam MvrCurveConversion::curveOfKnots(const std::vector<Vector3>& knots, bool flatten,
                                            double upper) {
  return CurveParam(0.0, upper, knotCurve(knots, flatten), false);
}

CurveParam MvrCurveConversion::scaledKnotCurve(const std::vector<Vector3>& knots, double factor,
                                               double upper) {
  std::map<double, double> keys = knotCurve(knots, true);
  for (auto& entry : keys) entry.second *= factor;
  return CurveParam(0.0, upper, keys, false);
}

CurveParam MvrCurveConversion::normalisedShape(const std::vector<Vector3>& allKnots) {
  const std::vector<Vector3> knots = usableKnots(allKnots);
  if (knots.size() < 2) return constantOne(-0.1, 1.1);
  const auto [yLow, yHigh] = std::minmax_element(
      knots.begin(), knots.end(), [](const Vector3& a, const Vector3& b) { return a.y < b.y; });
  const auto [xLow, xHigh] = std::minmax_element(
      knots.begin(), knots.end(), [](const Vector3& a, const Vector3& b) { return a.x < b.x; });
  const double spread = yHigh->y - yLow->y;
  if (!(spread > 0.0) || !std::isfinite(spread)) return constantOne(-0.1, 1.1);
  std::map<double, double> keys;
  for (const Vector3& knot : knots) keys[(knot.y - yLow->y) / spread] = knot.x;
  return CurveParam(xLow->x, xHigh->x, keys, false);
}

MvrPath MvrCurveConversion::arcLengthPath(const std::vector<Vector3>& knots) {
  std::vector<double> arc(knots.size(), 0.0);
  for (std::size_t i = 1; i < knots.size(); ++i)
    arc[i] = arc[i - 1] + (knots[i] - knots[i - 1]).length();
  const double total = arc.empty() ? 0.0 : arc.back();
  const bool byLength = total > 0.0 && std::isfinite(total);
  MvrPath path;
  for (std::size_t i = 0; i < knots.size(); ++i) {
    const double key =
        byLength ? arc[i] / total : (knots.size() > 1 ? double(i) / double(knots.size() - 1) : 0.0);
    path[key] = knots[i];
  }
  return path;
}

}  // namespace mv
