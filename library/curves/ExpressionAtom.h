// ExpressionAtom: one node of a parsed expression tree. Each atom owns its children; a tree never
// changes once built.
#pragma once

#include <memory>
#include <string>

#include "curves/VariableScope.h"

namespace mv {

class ExpressionAtom {
 public:
  virtual ~ExpressionAtom() = default;
  virtual double evaluate(const VariableScope& variables) const = 0;
  // Appends the atom's text to out.
  virtual void print(std::string& out) const = 0;
};

using AtomPointer = std::unique_ptr<ExpressionAtom>;

}  // namespace mv
