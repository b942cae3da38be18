#include <gtest/gtest.h>

#include "scene/MvrCurveConversion.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"

using mv::MvrCurveConversion;

TEST(MvrCurveConversion, classicFunctionTextsBecomeExpressions) {
  const std::pair<const char*, const char*> rows[] = {
      {"id", "id"},
      {"cos(x)", "cos(x)"},
      {"frame(x)", "f"},
      {"frame(x)*2", "f*2"},
      {"sin(frame(x))", "sin(f)"},
      {"ftime(x)+iter(x)", "a+i"},
      {"chdrn(x)/rec(x)", "n/0"},
      {"2*(frame(x)+1)", "2*(f+1)"},
      {"((iter(x)))", "((i))"},
      {"-chdrn(x)", "-n"},
      {"frame", "f"},
      {"sin(x) trailing words", "sin(x)"},
      {"(x", "(x)"},
      {"", ""},
  };
  for (const auto& [classic, expression] : rows)
    EXPECT_EQ(MvrCurveConversion::translateFunction(classic), expression) << classic;
}

TEST(MvrCurveConversion, rangesBecomeCurvesWithTheCosineShortcut) {
  CapturingMessageHandler messages;
  const mv::CurveParam flatCos = MvrCurveConversion::curveOf({0, 0, "cos", -3, 3});
  EXPECT_EQ(flatCos.minimum(), -1);
  EXPECT_EQ(flatCos.maximum(), 2);
  EXPECT_EQ(flatCos.evaluate(0.3), 1);
  const mv::CurveParam cos = MvrCurveConversion::curveOf({0, 1, "cos(x)", -3, 3});
  EXPECT_DOUBLE_EQ(cos.evaluate(1), std::cos(1.0));
  EXPECT_EQ(cos.minimum(), -3);
  const mv::CurveParam frames = MvrCurveConversion::curveOf({1, 3, "frame(x)*2", 0, 9});
  std::string text;
  frames.getExpression(text);
  EXPECT_EQ(text.find("frame"), std::string::npos);
  EXPECT_DOUBLE_EQ(frames.evaluateCurve(0.5), 2);
  EXPECT_TRUE(messages.warnings.empty());
  // A text that is no expression leaves "id" with the curve's own warning.
  const mv::CurveParam bad = MvrCurveConversion::curveOf({1, 3, "((", 0, 9});
  EXPECT_EQ(messages.warnings.size(), 1u);
  EXPECT_DOUBLE_EQ(bad.evaluate(0.5), 2);
}

TEST(MvrCurveConversion, directCurvesKeepTheFunctionText) {
  CapturingMessageHandler messages;
  const mv::CurveParam direct = MvrCurveConversion::directCurveOf({0, 0, "cos", -1, 1});
  EXPECT_DOUBLE_EQ(direct.evaluate(0.5), 1);  // cos of the curve value 0, no shortcut
  EXPECT_EQ(direct.minimum(), -1);
}

TEST(MvrCurveConversion, knotCurvesFlattenEqualValues) {
  const std::vector<mv::Vector3> flat{{0.2, 0.5, 0}, {0.7, 0.5 + 1e-9, 0}};
  EXPECT_EQ(MvrCurveConversion::knotCurve(flat, true),
            (std::map<double, double>{{0, 0.5}, {1, 0.5}}));
  EXPECT_EQ(MvrCurveConversion::knotCurve(flat, false),
            (std::map<double, double>{{0.2, 0.5}, {0.7, 0.5 + 1e-9}}));
  EXPECT_EQ(MvrCurveConversion::knotCurve({{0.4, 2, 0}}, true),
            (std::map<double, double>{{0, 2}, {1, 2}}));
  EXPECT_TRUE(MvrCurveConversion::knotCurve({}, true).empty());
  const mv::CurveParam curve =
      MvrCurveConversion::curveOfKnots({{0, 0, 0}, {0.5, 0.5, 0}, {1, 0.2, 0}}, true, 4);
  EXPECT_EQ(curve.minimum(), 0);
  EXPECT_EQ(curve.maximum(), 4);
  EXPECT_EQ(curve.getPointCount(), 3);
  EXPECT_DOUBLE_EQ(curve.evaluate(0.5), 0.5);
  EXPECT_DOUBLE_EQ(curve.evaluate(1), 0.2);
  const mv::CurveParam scaled = MvrCurveConversion::scaledKnotCurve({{0, 0.4, 0}}, M_PI, M_PI);
  EXPECT_DOUBLE_EQ(scaled.evaluate(0.6), 0.4 * M_PI);
}

TEST(MvrCurveConversion, normalisedShapeTurnsTheKnotsRound) {
  const mv::CurveParam shape =
      MvrCurveConversion::normalisedShape({{0, 0.9, 0}, {0.5, 0.6, 0}, {1, 0, 0}});
  EXPECT_EQ(shape.minimum(), 0);
  EXPECT_EQ(shape.maximum(), 1);
  EXPECT_DOUBLE_EQ(shape.evaluateCurve(0), 1);            // y 0 is the knot at x 1
  EXPECT_DOUBLE_EQ(shape.evaluateCurve(0.6 / 0.9), 0.5);  // the middle knot
  EXPECT_DOUBLE_EQ(shape.evaluateCurve(1), 0);
  for (const std::vector<mv::Vector3>& few :
       {std::vector<mv::Vector3>{{0.3, 0.2, 0}}, std::vector<mv::Vector3>{{0, 1, 0}, {1, 1, 0}}}) {
    const mv::CurveParam constant = MvrCurveConversion::normalisedShape(few);
    EXPECT_DOUBLE_EQ(constant.evaluate(0.4), 1);
    EXPECT_DOUBLE_EQ(constant.minimum(), -0.1);
  }
}

TEST(MvrCurveConversion, pathsAreKeyedByArcLength) {
  const mv::MvrPath path = MvrCurveConversion::arcLengthPath({{0, 0, 0}, {0, 0, 3}, {4, 0, 3}});
  ASSERT_EQ(path.size(), 3u);
  auto it = path.begin();
  EXPECT_EQ(it->first, 0);
  EXPECT_DOUBLE_EQ((++it)->first, 3.0 / 7);
  expectNear(it->second, {0, 0, 3});
  EXPECT_EQ((++it)->first, 1);
  const mv::MvrPath still = MvrCurveConversion::arcLengthPath({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
  EXPECT_EQ(still.size(), 3u);
  EXPECT_EQ(still.rbegin()->first, 1);
  EXPECT_TRUE(MvrCurveConversion::arcLengthPath({}).empty());
}

TEST(MvrCurveConversion, overlongKnotListsAreCutWithAWarning) {
  CapturingMessageHandler messages;
  std::vector<mv::Vector3> knots;
  for (int i = 0; i < 100000; ++i) knots.push_back({i / 100000.0, double(i % 3), 0});
  const mv::CurveParam curve = MvrCurveConversion::curveOfKnots(knots, false, 2);
  EXPECT_EQ(curve.getPointCount(), static_cast<int>(MvrCurveConversion::kMaxCurveKnots));
  EXPECT_EQ(messages.warnings, std::vector<std::string>{"Knot list of 100000 knots cut to 1024"});
  EXPECT_EQ(MvrCurveConversion::normalisedShape(knots).getPointCount(), 3);  // keys 0, 0.5, 1
}
