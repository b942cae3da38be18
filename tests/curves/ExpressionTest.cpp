#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "curves/Expression.h"
#include "curves/MersenneTwister.h"
#include "curves/ValueNoise.h"

namespace {

std::string printed(const mv::Expression& expression) {
  std::string out = "unchanged";
  expression.print(out);
  return out;
}

double valueAt(const std::string& text, double x) {
  mv::Expression expression;
  EXPECT_TRUE(expression.parse(text)) << text;
  return expression.evaluate(mv::VariableMap{{'x', x}});
}

struct ParseCase {
  const char* text;
  const char* printed;
  double valueAtTwo;  // with x = 2
};

}  // namespace

TEST(Expression, parsesPrintsAndEvaluatesTable) {
  const ParseCase cases[] = {
      {"x", "x", 2.0},
      {"(x)", "x", 2.0},
      {"((x))", "(x)", 2.0},
      {"sin", "sin(x)", std::sin(2.0)},
      {"id", "id(x)", 2.0},
      {"sin(sin)", "sin(sin(x))", std::sin(std::sin(2.0))},
      {"-x", "-x", -2.0},
      {"x*-1", "x*-1", -2.0},
      {"-3+x", "-3+x", -1.0},
      {"2^3^2", "2^3^2", 64.0},
      {"-x^2", "-x^2", 4.0},  // the sign binds first: (-x)^2
      {"1+2*3", "1+2*3", 7.0},
      {"(1+2)*3", "(1+2)*3", 9.0},
      {"2-3-4", "2-3-4", -5.0},
      {"8/4/2", "8/4/2", 1.0},
      {"x^2+1", "x^2+1", 5.0},
      {"1.2.3", "1.2", 1.2},
      {".5", "0.5", 0.5},
      {"0.1234567*x", "0.123457*x", 0.2469134},
      {"1000000", "1e+06", 1e6},
      {"(x+1", "(x+1)", 3.0},  // a missing ")" closes at the end
      {"sqr(x+1)", "sqr(x+1)", 9.0},
      {"phi(x)", "phi(x)", 3.23606797749979},
      {"floor(-x/4)+ceil(x/3)", "floor(-x/4)+ceil(x/3)", 0.0},
      {"abs(-x)*exp(0)-log(1)", "abs(-x)*exp(0)-log(1)", 2.0},
      {"sqrt(x*8)", "sqrt(x*8)", 4.0},
      {"tanh(0)+cosh(0)+sinh(0)", "tanh(0)+cosh(0)+sinh(0)", 1.0},
      {"atan(1)*4-acos(-1)+asin(0)", "atan(1)*4-acos(-1)+asin(0)", 0.0},
      {"tan(cos(x))", "tan(cos(x))", std::tan(std::cos(2.0))},
      {"y", "y", 0.0},  // absent variables read 0
  };
  for (const ParseCase& c : cases) {
    mv::Expression expression;
    ASSERT_TRUE(expression.parse(c.text)) << c.text;
    EXPECT_EQ(printed(expression), c.printed) << c.text;
    EXPECT_NEAR(expression.evaluate(mv::VariableMap{{'x', 2.0}}), c.valueAtTwo, 1e-12) << c.text;
  }
}

TEST(Expression, refusesTextsThatAreNotExpressions) {
  const char* refused[] = {"",      "()",     "sin x", "x + 1",    "2x",      "1e5",    "2(x)",
                           "2*sin", "sin+x",  "*x",    "+x",       "exp2(x)", "rndabs", "abc",
                           "x-",    "-",      "sin()", "x*()",     "(x)(x)",  "x^^2",   "cos(x)y",
                           "x+y+",  "((()))", " x",    "phi(abc)", "2*-*x"};
  for (const char* text : refused) {
    mv::Expression expression;
    EXPECT_FALSE(expression.parse(text)) << text;
    EXPECT_TRUE(!expression) << text;
    EXPECT_EQ(printed(expression), "") << text;
    EXPECT_EQ(expression.evaluate(mv::VariableMap{{'x', 1.0}}), 0.0) << text;
  }
}

TEST(Expression, failedParseDropsOldTreeAndNames) {
  mv::Expression expression;
  ASSERT_TRUE(expression.parse("x+u"));
  EXPECT_EQ(expression.variableNames(), (std::set<char>{'u', 'x'}));
  EXPECT_FALSE(expression.parse("x+"));
  EXPECT_FALSE(static_cast<bool>(expression));
  EXPECT_TRUE(expression.variableNames().empty());
}

TEST(Expression, collectsVariableLetters) {
  mv::Expression expression;
  ASSERT_TRUE(expression.parse("sin(x)*u+t^n-2"));
  EXPECT_EQ(expression.variableNames(), (std::set<char>{'n', 't', 'u', 'x'}));
  ASSERT_TRUE(expression.parse("sin"));
  EXPECT_EQ(expression.variableNames(), (std::set<char>{'x'}));
}

TEST(Expression, divisionByZeroFollowsFloatingPoint) {
  EXPECT_TRUE(std::isinf(valueAt("1/0", 0.0)));
  EXPECT_TRUE(std::isnan(valueAt("sqrt(-1)", 0.0)));
  EXPECT_TRUE(std::isinf(valueAt("log(x)", 0.0)));
}

TEST(Expression, copiesShareTreeAndCompareByIdentity) {
  mv::Expression a;
  ASSERT_TRUE(a.parse("x*2"));
  mv::Expression b = a;
  EXPECT_TRUE(a == b);
  mv::Expression c;
  ASSERT_TRUE(c.parse("x*2"));
  EXPECT_TRUE(a != c);  // same text, other tree

  ASSERT_TRUE(a.parse("x*3"));  // b keeps the first tree alive
  EXPECT_TRUE(a != b);
  EXPECT_EQ(printed(b), "x*2");
  EXPECT_EQ(b.evaluate(mv::VariableMap{{'x', 4.0}}), 8.0);
}

TEST(Expression, rndDrawsBeforeItsArgumentLeftSideFirst) {
  mv::Expression expression;
  ASSERT_TRUE(expression.parse("rnd(rnd(1))-rnd(3)"));
  mt::MersenneTwister copy = mt::MersenneTwister::shared();
  const double outer = copy.next(), inner = copy.next(), right = copy.next();
  const double expected = (2 * inner - 1) * (2 * outer - 1) - 3 * (2 * right - 1);
  EXPECT_DOUBLE_EQ(expression.evaluate(mv::VariableMap{}), expected);
  EXPECT_EQ(mt::MersenneTwister::shared().nextWord(), copy.nextWord());
}

TEST(Expression, noiseReadsSharedValueNoise) {
  for (double x : {0.25, 3.0, 17.7}) {
    EXPECT_DOUBLE_EQ(valueAt("noise(x*2)", x), mt::ValueNoise::shared().noise(x * 2));
  }
}

TEST(Expression, scopeBindingsHideMapEntries) {
  mv::Expression expression;
  ASSERT_TRUE(expression.parse("x*10+u+n"));
  const mv::VariableMap map{{'x', 1.0}, {'u', 2.0}, {'n', 300.0}};
  mv::VariableScope scope(map);
  EXPECT_EQ(expression.evaluate(scope), 312.0);
  scope.bind('x', 5.0);
  scope.bind('u', 0.5);
  scope.bind('x', 4.0);
  EXPECT_EQ(expression.evaluate(scope), 340.5);
  EXPECT_TRUE(scope.bind('a', 0.0));
  EXPECT_TRUE(scope.bind('b', 0.0));
  EXPECT_FALSE(scope.bind('c', 0.0));  // room for kMaxBound letters
}

TEST(Expression, deepNestingIsRefusedWithoutExhaustingStack) {
  const int deep = 100000;
  mv::Expression expression;
  EXPECT_FALSE(expression.parse(std::string(deep, '(') + "x" + std::string(deep, ')')));
  EXPECT_FALSE(expression.parse(std::string(deep, '(') + "x"));
  std::string functions;
  for (int i = 0; i < deep; ++i) functions += "sin(";
  EXPECT_FALSE(expression.parse(functions + "x"));
  std::string chain = "x";
  for (int i = 0; i < deep; ++i) chain += "+x";
  EXPECT_FALSE(expression.parse(chain));
  std::string minus(deep, '-');
  EXPECT_TRUE(expression.parse(minus + "x"));  // repeated signs set one flag

  const int fine = 100;
  ASSERT_TRUE(expression.parse(std::string(fine, '(') + "x+1" + std::string(fine, ')')));
  EXPECT_EQ(expression.evaluate(mv::VariableMap{{'x', 1.0}}), 2.0);
}

// The nesting limit counts parentheses and functions, not the length of a chain.
TEST(Expression, longFlatChainsParseUpToTheTreeDepth) {
  mv::Expression expression;
  for (int terms : {300, 5000}) {
    std::string chain = "x";
    for (int i = 1; i < terms; ++i) chain += "+x";
    ASSERT_TRUE(expression.parse(chain)) << terms;
    EXPECT_EQ(expression.evaluate(mv::VariableMap{{'x', 1.0}}), terms);
  }
  const std::string nested = std::string(2 * mv::Expression::kMaxDepth, '(') + "x" +
                             std::string(2 * mv::Expression::kMaxDepth, ')');
  EXPECT_FALSE(expression.parse(nested));
  std::string tooLong = "x";
  for (int i = 0; i < mv::Expression::kMaxTreeDepth; ++i) tooLong += "*x";
  EXPECT_FALSE(expression.parse(tooLong));
}

TEST(Expression, randomBytesNeverCrashTheParser) {
  std::mt19937 random(12345);
  std::uniform_int_distribution<int> length(0, 24), byte(0, 255);
  const std::string favoured = "x()+-*/^.0123456789sinotqrdph";
  for (int iteration = 0; iteration < 20000; ++iteration) {
    std::string text;
    for (int n = length(random); n > 0; --n) {
      const int b = byte(random);
      text += b < 200 ? favoured[b % favoured.size()] : static_cast<char>(b);
    }
    mv::Expression expression;
    if (expression.parse(text)) {
      EXPECT_FALSE(printed(expression).empty()) << text;
      expression.evaluate(mv::VariableMap{{'x', 0.5}});
    } else {
      EXPECT_EQ(printed(expression), "") << text;
    }
  }
}

// Over texts of small integers the printed form means the same as the text. (A lone parenthesis
// can be a one-letter variable; such texts are left out.)
TEST(Expression, printedFormParsesToTheSameValue) {
  std::mt19937 random(99);
  const std::string alphabet = "x12+-*/^()";
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1), length(1, 12);
  int checked = 0;
  for (int iteration = 0; iteration < 20000; ++iteration) {
    std::string text;
    for (size_t n = length(random); n > 0; --n) text += alphabet[pick(random)];
    mv::Expression original, again;
    if (!original.parse(text) || original.variableNames().count('(') ||
        original.variableNames().count(')')) {
      continue;
    }
    ASSERT_TRUE(again.parse(printed(original))) << text;
    const double a = original.evaluate(mv::VariableMap{{'x', 0.75}});
    const double b = again.evaluate(mv::VariableMap{{'x', 0.75}});
    if (std::isnan(a)) {
      EXPECT_TRUE(std::isnan(b)) << text;
    } else {
      EXPECT_EQ(a, b) << text << " printed " << printed(original);
    }
    ++checked;
  }
  EXPECT_GT(checked, 1000);
}
