// ExprOpNeg: unary minus. The sign binds tighter than any operator: "-x^2" is (-x)^2.
#pragma once

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprOpNeg : public ExpressionAtom {
 public:
  explicit ExprOpNeg(AtomPointer operand) : operand_(std::move(operand)) {}
  double evaluate(const VariableScope& variables) const override {
    return operand_ ? -operand_->evaluate(variables) : 0.0;
  }
  void print(std::string& out) const override {
    out += '-';
    if (operand_) operand_->print(out);
  }

 private:
  AtomPointer operand_;
};

}  // namespace mv
