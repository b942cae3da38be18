// Expression: a formula over one-letter variables, such as "sin(x)", "x^2+1" or "noise(x*8)",
// parsed into a tree of atoms. One number type, five left-associative binary operators (the
// power too: "2^3^2" is 64), a sign that binds tighter than any of them, parentheses and
// one-argument functions; no white space and no exponent notation. A text that is a bare function
// name means that function of x ("sin" is "sin(x)").
//
// Copies share the tree, which is freed with its last holder, and two expressions are equal
// exactly when they hold the same tree, whatever their texts. Texts nested deeper than kMaxDepth
// (parentheses, functions, signs) are refused; a chain of operators may be long, up to a tree
// depth of kMaxTreeDepth, so that no input can exhaust the stack when the tree is evaluated.
#pragma once

#include <memory>
#include <set>
#include <string>

#include "curves/ExpressionAtom.h"

namespace mv {

class Expression {
 public:
  static constexpr int kMaxDepth = 256;
  static constexpr int kMaxTreeDepth = 8192;

  Expression() = default;
  virtual ~Expression() = default;

  // True when a parse succeeded.
  explicit operator bool() const { return root_ != nullptr; }
  bool operator!() const { return root_ == nullptr; }
  bool operator==(const Expression& other) const { return root_ == other.root_; }
  bool operator!=(const Expression& other) const { return root_ != other.root_; }

  // Replaces the tree by that of text; false (and no tree) when text is not an expression.
  // Reports nothing: the caller decides.
  virtual bool parse(const std::string& text);
  // The tree as text, with its parentheses; empty without a tree.
  virtual void print(std::string& out) const;
  // The value for the given variables (absent ones read 0.0); 0.0 without a tree.
  virtual double evaluate(const VariableMap& variables) const;
  double evaluate(const VariableScope& variables) const {
    return root_ ? root_->evaluate(variables) : 0.0;
  }

  // The letters that the parsed text uses as variables.
  const std::set<char>& variableNames() const { return variableNames_; }

 private:
  std::shared_ptr<const ExpressionAtom> root_;
  std::set<char> variableNames_;
};

}  // namespace mv
