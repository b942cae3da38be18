// ExprVariable: a one-letter variable of an expression, read from the scope (0.0 when unset).
#pragma once

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprVariable : public ExpressionAtom {
 public:
  explicit ExprVariable(char name) : name_(name) {}
  double evaluate(const VariableScope& variables) const override { return variables.value(name_); }
  void print(std::string& out) const override { out += name_; }

 private:
  char name_;
};

}  // namespace mv
