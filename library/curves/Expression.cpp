#include "curves/Expression.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "curves/ExprConstant.h"
#include "curves/ExprFunction.h"
#include "curves/ExprOpNeg.h"
#include "curves/ExprOperator.h"
#include "curves/ExprParenthesis.h"
#include "curves/ExprVariable.h"

namespace mv {

namespace {

constexpr std::string_view kOperators = "+-*/^";  // index is the rank code

bool isOperatorToken(std::string_view token) {
  return token.size() == 1 && kOperators.find(token[0]) != std::string_view::npos;
}

// Index of the ")" that closes the "(" at open, or text.size() when it is missing.
size_t matchingParenthesis(std::string_view text, size_t open) {
  int depth = 0;
  for (size_t i = open; i < text.size(); ++i) {
    if (text[i] == '(') ++depth;
    if (text[i] == ')' && --depth == 0) return i;
  }
  return text.size();
}

// token := "(" group ")" | operator character | run of any other characters (blanks included).
// A group token is the text inside its outer parentheses and may be empty.
std::vector<std::string_view> tokenize(std::string_view text) {
  std::vector<std::string_view> tokens;
  size_t start = 0;
  auto endCollected = [&](size_t end) {
    if (end > start) tokens.push_back(text.substr(start, end - start));
  };
  for (size_t i = 0; i < text.size();) {
    if (text[i] == '(') {
      endCollected(i);
      const size_t close = matchingParenthesis(text, i);
      tokens.push_back(text.substr(i + 1, close - i - 1));
      i = start = close < text.size() ? close + 1 : close;
    } else if (isOperatorToken(text.substr(i, 1))) {
      endCollected(i);
      tokens.push_back(text.substr(i, 1));
      i = start = i + 1;
    } else {
      ++i;
    }
  }
  endCollected(text.size());
  return tokens;
}

bool isNumber(std::string_view token) {
  return token.find_first_not_of("0123456789.") == std::string_view::npos;
}

// The standard conversion reads the longest number at the front: "1.2.3" is 1.2, "." is 0.
double toNumber(std::string_view token) { return std::strtod(std::string(token).c_str(), nullptr); }

// An atom with the depth of its tree; a null atom means failure.
struct Operand {
  AtomPointer atom;
  int depth = 0;
};

Operand wrapped(AtomPointer atom, int innerDepth) { return {std::move(atom), innerDepth + 1}; }

AtomPointer combine(int rank, AtomPointer left, AtomPointer right) {
  switch (rank) {
    case 0:
      return std::make_unique<ExprOpAdd>(std::move(left), std::move(right));
    case 1:
      return std::make_unique<ExprOpSub>(std::move(left), std::move(right));
    case 2:
      return std::make_unique<ExprOpMult>(std::move(left), std::move(right));
    case 3:
      return std::make_unique<ExprOpDiv>(std::move(left), std::move(right));
    default:
      return std::make_unique<ExprOpPow>(std::move(left), std::move(right));
  }
}

class Parser {
 public:
  explicit Parser(std::set<char>& names) : names_(names) {}

  Operand parse(std::string_view text, int level);

 private:
  Operand operand(const std::vector<std::string_view>& tokens, size_t& i, std::string_view text,
                  int level);
  static Operand fold(std::vector<Operand>& atoms, std::vector<int>& ranks);

  std::set<char>& names_;
};

// expression := [sign] operand { operator [sign] operand }, folded by rank.
Operand Parser::parse(std::string_view text, int level) {
  if (level > Expression::kMaxDepth) return {};
  const std::string completed = ExprFunction::isName(text) ? std::string(text) + "(x)" : "";
  if (!completed.empty()) text = completed;
  const std::vector<std::string_view> tokens = tokenize(text);
  std::vector<Operand> atoms;
  std::vector<int> ranks;
  bool negate = false;
  for (size_t i = 0; i < tokens.size() && !tokens[i].empty(); ++i) {
    if (isOperatorToken(tokens[i])) {
      if (i > 0 && !isOperatorToken(tokens[i - 1])) {
        ranks.push_back(static_cast<int>(kOperators.find(tokens[i][0])));
      } else if (tokens[i] == "-") {
        negate = true;
      } else {
        return {};  // only "-" can open an operand
      }
      continue;
    }
    if (ExprFunction::isName(tokens[i]) && i + 1 == tokens.size()) break;  // name without argument
    Operand next = operand(tokens, i, text, level);
    if (!next.atom) return {};
    if (negate) next = wrapped(std::make_unique<ExprOpNeg>(std::move(next.atom)), next.depth);
    negate = false;
    atoms.push_back(std::move(next));
  }
  if (atoms.size() != ranks.size() + 1) return {};
  return fold(atoms, ranks);
}

// operand := function token argument-token | number | letter | sub-expression token.
// Advances i past a function's argument.
Operand Parser::operand(const std::vector<std::string_view>& tokens, size_t& i,
                        std::string_view text, int level) {
  const std::string_view token = tokens[i];
  Operand result;
  if (ExprFunction::isName(token)) {
    Operand argument = parse(tokens[++i], level + 1);
    if (!argument.atom) return {};
    result = wrapped(ExprFunction::create(token, std::move(argument.atom)), argument.depth);
  } else if (isNumber(token)) {
    result = wrapped(std::make_unique<ExprConstant>(toNumber(token)), 0);
  } else if (token.size() == 1) {
    names_.insert(token[0]);
    result = wrapped(std::make_unique<ExprVariable>(token[0]), 0);
  } else if (token != text) {  // the same text again would recurse without end
    Operand inner = parse(token, level + 1);
    if (!inner.atom) return {};
    result = wrapped(std::make_unique<ExprParenthesis>(std::move(inner.atom)), inner.depth);
  }
  if (result.depth > Expression::kMaxTreeDepth) return {};
  return result;
}

// Three left-to-right passes: "^", then "*" and "/", then "+" and "-". Each pass rebuilds the
// lists once, so that long chains cost linear time.
Operand Parser::fold(std::vector<Operand>& atoms, std::vector<int>& ranks) {
  const int passLowestRank[] = {4, 2, 0};
  for (int lowest : passLowestRank) {
    std::vector<Operand> keptAtoms;
    std::vector<int> keptRanks;
    keptAtoms.push_back(std::move(atoms.front()));
    for (size_t i = 0; i < ranks.size(); ++i) {
      if (ranks[i] < lowest || ranks[i] > lowest + 1) {
        keptRanks.push_back(ranks[i]);
        keptAtoms.push_back(std::move(atoms[i + 1]));
        continue;
      }
      Operand& left = keptAtoms.back();
      left.depth = std::max(left.depth, atoms[i + 1].depth) + 1;
      if (left.depth > Expression::kMaxTreeDepth) return {};
      left.atom = combine(ranks[i], std::move(left.atom), std::move(atoms[i + 1].atom));
    }
    atoms.swap(keptAtoms);
    ranks.swap(keptRanks);
  }
  return std::move(atoms.front());
}

}  // namespace

bool Expression::parse(const std::string& text) {
  variableNames_.clear();
  Operand result = Parser(variableNames_).parse(text, 0);
  if (!result.atom) variableNames_.clear();
  root_ = std::move(result.atom);
  return root_ != nullptr;
}

void Expression::print(std::string& out) const {
  out.clear();
  if (root_) root_->print(out);
}

double Expression::evaluate(const VariableMap& variables) const {
  return evaluate(VariableScope(variables));
}

}  // namespace mv
