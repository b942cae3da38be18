#include "curves/ExprFunction.h"

#include "curves/MersenneTwister.h"
#include "curves/ValueNoise.h"

namespace mv {

namespace {

using Made = std::unique_ptr<ExprFunction>;
using Factory = Made (*)(AtomPointer);

struct FunctionName {
  const char* text;
  Factory create;  // null for a name without a class
};

const FunctionName kFunctionNames[] = {
    {"id", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncIdentity>(std::move(a)); }},
    {"sin", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncSin>(std::move(a)); }},
    {"cos", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncCos>(std::move(a)); }},
    {"tan", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncTan>(std::move(a)); }},
    {"asin", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncAsin>(std::move(a)); }},
    {"acos", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncAcos>(std::move(a)); }},
    {"atan", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncAtan>(std::move(a)); }},
    {"sinh", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncSinh>(std::move(a)); }},
    {"cosh", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncCosh>(std::move(a)); }},
    {"tanh", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncTanh>(std::move(a)); }},
    {"exp", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncExp>(std::move(a)); }},
    {"log", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncLog>(std::move(a)); }},
    {"sqr", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncSqr>(std::move(a)); }},
    {"sqrt", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncSqrt>(std::move(a)); }},
    {"ceil", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncCeil>(std::move(a)); }},
    {"floor", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncFloor>(std::move(a)); }},
    {"rnd", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncRnd>(std::move(a)); }},
    {"abs", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncAbs>(std::move(a)); }},
    {"noise", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncNoise>(std::move(a)); }},
    {"phi", [](AtomPointer a) -> Made { return std::make_unique<ExprFuncPhi>(std::move(a)); }},
    {"exp2", nullptr},
    {"rndabs", nullptr},
};

const FunctionName* findName(std::string_view text) {
  for (const FunctionName& entry : kFunctionNames) {
    if (text == entry.text) return &entry;
  }
  return nullptr;
}

}  // namespace

void ExprFunction::print(std::string& out) const {
  name(out);
  out += '(';
  if (argument_) argument_->print(out);
  out += ')';
}

bool ExprFunction::isName(std::string_view text) { return findName(text) != nullptr; }

std::unique_ptr<ExprFunction> ExprFunction::create(std::string_view name, AtomPointer argument) {
  const FunctionName* entry = findName(name);
  if (!entry || !entry->create) return nullptr;
  return entry->create(std::move(argument));
}

// The draw comes first, then the argument: the order decides which draw each "rnd" gets.
double ExprFuncRnd::evaluate(const VariableScope& variables) const {
  const double r = mt::MersenneTwister::shared().next();
  return argument(variables) * (2.0 * r - 1.0);
}

double ExprFuncNoise::evaluate(const VariableScope& variables) const {
  return mt::ValueNoise::shared().noise(argument(variables));
}

}  // namespace mv
