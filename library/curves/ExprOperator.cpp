#include "curves/ExprOperator.h"

#include <cmath>

namespace mv {

void ExprOperator::print(std::string& out) const {
  if (left_) left_->print(out);
  out += symbol_;
  if (right_) right_->print(out);
}

// Each operator reads its left side into a local first: the order of the operands of a built-in
// operator is unspecified.

double ExprOpAdd::evaluate(const VariableScope& variables) const {
  if (!complete()) return 0.0;
  const double left = leftValue(variables);
  return left + rightValue(variables);
}

double ExprOpSub::evaluate(const VariableScope& variables) const {
  if (!complete()) return 0.0;
  const double left = leftValue(variables);
  return left - rightValue(variables);
}

double ExprOpMult::evaluate(const VariableScope& variables) const {
  if (!complete()) return 0.0;
  const double left = leftValue(variables);
  return left * rightValue(variables);
}

double ExprOpDiv::evaluate(const VariableScope& variables) const {
  if (!complete()) return 0.0;
  const double left = leftValue(variables);
  return left / rightValue(variables);
}

double ExprOpPow::evaluate(const VariableScope& variables) const {
  if (!complete()) return 0.0;
  const double left = leftValue(variables);
  return std::pow(left, rightValue(variables));
}

}  // namespace mv
