// ExprConstant: a number of an expression. Prints in the default stream form (six significant
// digits), so a printed expression need not give back the digits as written.
#pragma once

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprConstant : public ExpressionAtom {
 public:
  explicit ExprConstant(double value) : value_(value) {}
  double evaluate(const VariableScope&) const override { return value_; }
  void print(std::string& out) const override { out += format(value_); }

  // A number in the default stream form, as "%g" writes it.
  static std::string format(double value);

 private:
  double value_;
};

}  // namespace mv
