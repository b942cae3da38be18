// ExprParenthesis: a parenthesised group that is more than one number or letter; it keeps the
// parentheses for printing and passes the value through.
#pragma once

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprParenthesis : public ExpressionAtom {
 public:
  explicit ExprParenthesis(AtomPointer inner) : inner_(std::move(inner)) {}
  double evaluate(const VariableScope& variables) const override {
    return inner_ ? inner_->evaluate(variables) : 0.0;
  }
  void print(std::string& out) const override {
    out += '(';
    if (inner_) inner_->print(out);
    out += ')';
  }

 private:
  AtomPointer inner_;
};

}  // namespace mv
