// CurveParam: the value type of a parameter that varies along a plant: a function of u in 0 to 1,
// drawn as a piecewise cubic curve through points (first at x 0, last at x 1, inner points sorted
// by x) and followed by an expression in which x is the curve's value and u the position.
//
// Invariants that every change keeps (a change that would break one is refused with false and
// leaves the curve as it was): all x lie in 0 to 1; for types PointMirrored and PointFree the in
// control x is not above x and the out control x not below; no two points closer in x than 1e-8;
// no point between the control points of a PointMirrored or PointFree point.
//
// A point index counts all points: 0 the first, 1 to n the inner points, n + 1 the last.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "curves/CurvePoint.h"
#include "curves/Expression.h"

namespace mv {

class CurveParam {
 public:
  // Below this, lengths in x and Bezier parameters count as zero.
  static constexpr double kTolerance = 1e-8;

  // Limits 0 and 1, first and last point (0, 0) and (1, 0), corners, expression "id".
  CurveParam();
  // Two corner points; a text that does not parse warns and leaves the expression "id".
  CurveParam(double minimum, double maximum, double firstY, double lastY,
             const std::string& expressionText);
  // Corners at both ends and one inner point at x 0.5 (id 2) of the given type.
  CurveParam(double minimum, double maximum, double firstY, double middleY, double lastY,
             int middleType);
  // Points from a map of x to y: the smallest key gives the first y, the largest the last y, the
  // others become smooth inner points. Ends are smooth unless cornerEnds; an empty map leaves
  // both ends at the mean of the limits.
  CurveParam(double minimum, double maximum, const std::map<double, double>& points,
             bool cornerEnds);

  // The parameter at u: the curve, then the expression with x = curve value and u = u on top of
  // the variables. "rnd" in the expression advances the shared generator.
  double evaluate(double u) const;
  // The drawn curve alone at u, clamped to 0 to 1.
  double evaluateCurve(double u) const;

  int getPointCount() const { return static_cast<int>(inner_.size()) + 2; }
  const CurvePoint* getPoint(int index) const;
  const CurvePoint* findPoint(int id) const;
  int getPointType(int id) const;
  double minimum() const { return minimum_; }
  double maximum() const { return maximum_; }
  int fixedLimits() const { return fixedLimits_; }
  bool isLowerLimitFixed() const { return (fixedLimits_ & 1) != 0; }
  bool isUpperLimitFixed() const { return (fixedLimits_ & 2) != 0; }
  bool hasInnerValueAbove(double limit) const;
  bool hasExpression() const { return static_cast<bool>(expression_); }
  void getExpression(std::string& text) const { expression_.print(text); }
  void getVariables(std::set<char>& names) const { names = expression_.variableNames(); }
  const Expression& expression() const { return expression_; }
  const VariableMap& variables() const { return variables_; }

  void setMinimum(double value) { minimum_ = value; }
  void setMaximum(double value) { maximum_ = value; }
  void setFixedLimits(int value) { fixedLimits_ = value; }
  // False, with the old expression kept, when text does not parse.
  bool setExpression(const std::string& text);
  void setVariables(const VariableMap& variables) { variables_ = variables; }

  // Stores point by its id (replacing that point, or adding it when mayAdd); false when it
  // breaks an invariant, when an end point would leave its x, or for an unknown id.
  bool setPoint(const CurvePoint& point, bool mayAdd);
  // Adds a point with its controls on it and returns its id (even when refused); near x 0 or 1
  // it sets the y of the first or last point instead and returns 0 or 1.
  int addPoint(double x, double y, int type);
  // Moves an inner point with its controls; false only for an end point or unknown id.
  bool setPointX(int id, double x);
  bool setPointY(int id, double y);
  bool setPointType(int id, int type);
  void setAllPointTypes(int type);
  bool deletePoint(int id);
  void clearPoints();
  // Multiplies the limits and the y of every point; user-set control points stay.
  void scale(double factor);
  // With an expression, prepends "factor*(" to it; otherwise scales. False when the new text
  // does not parse (a factor such as 1e+20), leaving the curve unchanged.
  bool multiply(double factor);
  void growLimits();
  void fitLimits();
  // Replaces the expression by count points sampled from the whole curve, of the given type, and
  // the expression "id"; false for count below 2 or an expression that uses variables other than
  // x and u.
  bool resample(int count, int type);

 private:
  CurvePoint& pointAt(int index);
  CurvePoint* findInner(int id);
  bool collides(const CurvePoint& point) const;
  bool storeEndPoint(CurvePoint point);
  void recomputeControls();
  void setOutControl(int index);
  void setInControl(int index);
  double bezierValue(const CurvePoint& left, const CurvePoint& right, double u) const;
  void valueRange(double& lowest, double& highest) const;

  double minimum_ = 0.0;
  double maximum_ = 1.0;
  std::vector<CurvePoint> inner_;
  CurvePoint first_;
  CurvePoint last_;
  int32_t fixedLimits_ = 0;
  Expression expression_;
  VariableMap variables_;
};

}  // namespace mv
