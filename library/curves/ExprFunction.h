// ExprFunction: a one-argument function of an expression, printed as name(argument), and the
// function classes. "rnd" draws from the shared generator before it evaluates its argument;
// "noise" reads the shared value noise. Domain errors follow floating point.
#pragma once

#include <cmath>
#include <string_view>

#include "curves/ExpressionAtom.h"

namespace mv {

class ExprFunction : public ExpressionAtom {
 public:
  explicit ExprFunction(AtomPointer argument) : argument_(std::move(argument)) {}
  double evaluate(const VariableScope& variables) const override { return argument(variables); }
  void print(std::string& out) const override;
  // Appends the function's name to out.
  virtual void name(std::string& out) const = 0;

  // Whether the tokenizer knows text as a function name; "exp2" and "rndabs" are known but have
  // no class.
  static bool isName(std::string_view text);
  // The function atom of that name over argument, or null for a name without a class.
  static std::unique_ptr<ExprFunction> create(std::string_view name, AtomPointer argument);

 protected:
  double argument(const VariableScope& variables) const {
    return argument_ ? argument_->evaluate(variables) : 0.0;
  }

 private:
  AtomPointer argument_;
};

class ExprFuncIdentity : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  void name(std::string& out) const override { out += "id"; }
};

class ExprFuncSin : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::sin(argument(variables));
  }
  void name(std::string& out) const override { out += "sin"; }
};

class ExprFuncCos : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::cos(argument(variables));
  }
  void name(std::string& out) const override { out += "cos"; }
};

class ExprFuncTan : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::tan(argument(variables));
  }
  void name(std::string& out) const override { out += "tan"; }
};

class ExprFuncAsin : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::asin(argument(variables));
  }
  void name(std::string& out) const override { out += "asin"; }
};

class ExprFuncAcos : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::acos(argument(variables));
  }
  void name(std::string& out) const override { out += "acos"; }
};

class ExprFuncAtan : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::atan(argument(variables));
  }
  void name(std::string& out) const override { out += "atan"; }
};

class ExprFuncSinh : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::sinh(argument(variables));
  }
  void name(std::string& out) const override { out += "sinh"; }
};

class ExprFuncCosh : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::cosh(argument(variables));
  }
  void name(std::string& out) const override { out += "cosh"; }
};

class ExprFuncTanh : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::tanh(argument(variables));
  }
  void name(std::string& out) const override { out += "tanh"; }
};

class ExprFuncExp : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::exp(argument(variables));
  }
  void name(std::string& out) const override { out += "exp"; }
};

class ExprFuncLog : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::log(argument(variables));
  }
  void name(std::string& out) const override { out += "log"; }
};

class ExprFuncSqr : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    const double a = argument(variables);
    return a * a;
  }
  void name(std::string& out) const override { out += "sqr"; }
};

class ExprFuncSqrt : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::sqrt(argument(variables));
  }
  void name(std::string& out) const override { out += "sqrt"; }
};

class ExprFuncCeil : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::ceil(argument(variables));
  }
  void name(std::string& out) const override { out += "ceil"; }
};

class ExprFuncFloor : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::floor(argument(variables));
  }
  void name(std::string& out) const override { out += "floor"; }
};

class ExprFuncRnd : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override;
  void name(std::string& out) const override { out += "rnd"; }
};

class ExprFuncAbs : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return std::fabs(argument(variables));
  }
  void name(std::string& out) const override { out += "abs"; }
};

class ExprFuncNoise : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override;
  void name(std::string& out) const override { out += "noise"; }
};

class ExprFuncPhi : public ExprFunction {
 public:
  using ExprFunction::ExprFunction;
  double evaluate(const VariableScope& variables) const override {
    return argument(variables) * 3.23606797749979 * 0.5;
  }
  void name(std::string& out) const override { out += "phi"; }
};

}  // namespace mv
