// ExprOperator: a binary operator of an expression and its five kinds. The left side is always
// evaluated first, since "rnd" on either side advances the shared generator. Plain floating
// point: a division by zero gives an infinity or NaN.
#pragma once

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprOperator : public ExpressionAtom {
 public:
  ExprOperator(AtomPointer left, AtomPointer right, char symbol)
      : left_(std::move(left)), right_(std::move(right)), symbol_(symbol) {}
  void print(std::string& out) const override;

 protected:
  double leftValue(const VariableScope& variables) const { return left_->evaluate(variables); }
  double rightValue(const VariableScope& variables) const { return right_->evaluate(variables); }
  bool complete() const { return left_ && right_; }

 private:
  AtomPointer left_;
  AtomPointer right_;
  char symbol_;
};

class ExprOpAdd : public ExprOperator {
 public:
  ExprOpAdd(AtomPointer left, AtomPointer right)
      : ExprOperator(std::move(left), std::move(right), '+') {}
  double evaluate(const VariableScope& variables) const override;
};

class ExprOpSub : public ExprOperator {
 public:
  ExprOpSub(AtomPointer left, AtomPointer right)
      : ExprOperator(std::move(left), std::move(right), '-') {}
  double evaluate(const VariableScope& variables) const override;
};

class ExprOpMult : public ExprOperator {
 public:
  ExprOpMult(AtomPointer left, AtomPointer right)
      : ExprOperator(std::move(left), std::move(right), '*') {}
  double evaluate(const VariableScope& variables) const override;
};

class ExprOpDiv : public ExprOperator {
 public:
  ExprOpDiv(AtomPointer left, AtomPointer right)
      : ExprOperator(std::move(left), std::move(right), '/') {}
  double evaluate(const VariableScope& variables) const override;
};

class ExprOpPow : public ExprOperator {
 public:
  ExprOpPow(AtomPointer left, AtomPointer right)
      : ExprOperator(std::move(left), std::move(right), '^') {}
  double evaluate(const VariableScope& variables) const override;
};

}  // namespace mv
