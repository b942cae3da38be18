// Construction, reading and evaluation of CurveParam; the edits are in CurveParamEditing.cpp.
#include "curves/CurveParam.h"

#include <algorithm>
#include <cmath>

#include "core/MessageSink.h"
#include "curves/ExprConstant.h"

namespace mv {

namespace {

constexpr double kEpsilon = CurveParam::kTolerance;

// Real roots of a s^3 + b s^2 + c s + d by Cardano's formula; a one-root case leaves the other
// entries 0.
void cubicRoots(double a, double b, double c, double d, double roots[3]) {
  const double A = b / a, B = c / a, C = d / a;
  const double third = A / 3.0;
  const double p = B - A * third;
  const double q = (C + A * (2.0 * A * A - 9.0 * B) / 27.0) / 2.0;
  double D = q * q + p * p * p / 27.0;
  if (std::fabs(D) <= kEpsilon) D = 0.0;
  roots[0] = roots[1] = roots[2] = 0.0;
  if (D > 0.0) {
    const double root = std::sqrt(D);
    roots[0] = std::cbrt(root - q) + std::cbrt(-(q + root)) - third;
  } else if (D < 0.0) {
    const double r = std::sqrt(-p / 3.0);
    const double angle = std::atan2(std::sqrt(-D), -q) / 3.0;
    const double cosine = std::cos(angle), sineTerm = std::sqrt(3.0) * std::sin(angle);
    roots[0] = 2.0 * r * std::cos(angle) - third;
    roots[1] = -r * (cosine + sineTerm) - third;
    roots[2] = -r * (cosine - sineTerm) - third;
  } else {
    const double c0 = std::cbrt(-q);
    roots[0] = 2.0 * c0 - third;
    roots[1] = roots[2] = -c0 - third;
  }
}

void reportRootProblem(const double roots[3], double a, double b, double c, double d) {
  std::string text = "Curve Evaluation Problem: [";
  text += ExprConstant::format(roots[0]) + " " + ExprConstant::format(roots[1]) + " " +
          ExprConstant::format(roots[2]) + "] [" + ExprConstant::format(a) + " " +
          ExprConstant::format(b) + " " + ExprConstant::format(c) + " " + ExprConstant::format(d) +
          "]";
  messageSink.error(text);
}

// The Bezier parameter s at which the curve's x reaches t, given the normalised x controls.
double bezierParameter(double c1, double c2, double t) {
  const double a = 1.0 + 3.0 * c1 - 3.0 * c2, b = 3.0 * c2 - 6.0 * c1, c = 3.0 * c1, d = -t;
  if (std::fabs(a) <= kEpsilon) return t;
  double roots[3];
  cubicRoots(a, b, c, d, roots);
  for (int i = 2; i >= 0; --i) {
    if (roots[i] > 0.0 && roots[i] < 1.0) return roots[i];
  }
  reportRootProblem(roots, a, b, c, d);
  return t;
}

}  // namespace

CurveParam::CurveParam()
    : first_(CurvePoint::at(0.0, 0.0, PointCorner, 0)),
      last_(CurvePoint::at(1.0, 0.0, PointCorner, 1)) {
  expression_.parse("id");
}

CurveParam::CurveParam(double minimum, double maximum, double firstY, double lastY,
                       const std::string& expressionText)
    : minimum_(minimum),
      maximum_(maximum),
      first_(CurvePoint::at(0.0, firstY, PointCorner, 0)),
      last_(CurvePoint::at(1.0, lastY, PointCorner, 1)) {
  if (!expression_.parse(expressionText)) {
    messageSink.warning("CurveParam initialized with invalid Expression (" + expressionText + ")!");
    expression_.parse("id");
  }
}

CurveParam::CurveParam(double minimum, double maximum, double firstY, double middleY, double lastY,
                       int middleType)
    : CurveParam(minimum, maximum, firstY, lastY, "id") {
  inner_.push_back(CurvePoint::at(0.5, middleY, middleType, 2));
  recomputeControls();
}

CurveParam::CurveParam(double minimum, double maximum, const std::map<double, double>& points,
                       bool cornerEnds)
    : minimum_(minimum), maximum_(maximum) {
  const int32_t endType = cornerEnds ? PointCorner : PointSmooth;
  const double mean = (minimum + maximum) / 2.0;
  first_ = CurvePoint::at(0.0, points.empty() ? mean : points.begin()->second, endType, 0);
  last_ = CurvePoint::at(1.0, points.empty() ? mean : points.rbegin()->second, endType, 1);
  expression_.parse("id");
  if (points.size() > 2) {
    int32_t id = 2;
    for (auto it = std::next(points.begin()); it != std::prev(points.end()); ++it) {
      setPoint(CurvePoint::at(it->first, it->second, PointSmooth, id++), true);
    }
  }
  recomputeControls();
}

const CurvePoint* CurveParam::getPoint(int index) const {
  if (index < 0 || index >= getPointCount()) return nullptr;
  return &const_cast<CurveParam*>(this)->pointAt(index);
}

const CurvePoint* CurveParam::findPoint(int id) const {
  if (id == 0) return &first_;
  if (id == 1) return &last_;
  return const_cast<CurveParam*>(this)->findInner(id);
}

int CurveParam::getPointType(int id) const {
  const CurvePoint* point = findPoint(id);
  return point ? point->type : 0;
}

bool CurveParam::hasInnerValueAbove(double limit) const {
  return std::any_of(inner_.begin(), inner_.end(),
                     [limit](const CurvePoint& p) { return std::fabs(p.y) > limit; });
}

CurvePoint& CurveParam::pointAt(int index) {
  if (index == 0) return first_;
  if (index > static_cast<int>(inner_.size())) return last_;
  return inner_[index - 1];
}

CurvePoint* CurveParam::findInner(int id) {
  for (CurvePoint& point : inner_) {
    if (point.id == id) return &point;
  }
  return nullptr;
}

// x and u go into a scope in front of the variables map: the same values as a copy of the map
// with both set, without copying it.
double CurveParam::evaluate(double u) const {
  const double y = evaluateCurve(u);
  if (!expression_) return y;
  VariableScope scope(variables_);
  scope.bind('x', y);
  scope.bind('u', u);
  return expression_.evaluate(scope);
}

double CurveParam::evaluateCurve(double u) const {
  u = std::clamp(u, 0.0, 1.0);
  const CurvePoint* left = &first_;
  const CurvePoint* right = &last_;
  if (!inner_.empty()) {
    if (u < inner_.front().x) {
      right = &inner_.front();
    } else {
      // The first inner pair that encloses u, ends inclusive, or the last inner point onward.
      const auto after = std::lower_bound(inner_.begin() + 1, inner_.end(), u,
                                          [](const CurvePoint& p, double v) { return p.x < v; });
      left = &*(after - 1);
      if (after != inner_.end()) right = &*after;
    }
  }
  const bool linear = (left->type == PointCorner && right->type == PointCorner) ||
                      (inner_.empty() && left->type <= PointSmooth && right->type < PointMirrored);
  if (linear) return left->y + (right->y - left->y) * ((u - left->x) / (right->x - left->x));
  return bezierValue(*left, *right, u);
}

double CurveParam::bezierValue(const CurvePoint& left, const CurvePoint& right, double u) const {
  const double w = 1.0 / (right.x - left.x);
  const double t = (u - left.x) * w;
  if (t < kEpsilon) return left.y;
  if (t - 1.0 > -kEpsilon) return right.y;
  const double s = bezierParameter((left.outX - left.x) * w, (right.inX - left.x) * w, t);
  const double y1 = 3.0 * (left.outY - left.y);
  const double y2 = 3.0 * left.y - 6.0 * left.outY + 3.0 * right.inY;
  const double y3 = right.y - left.y + 3.0 * left.outY - 3.0 * right.inY;
  return left.y + ((y3 * s + y2) * s + y1) * s;
}

}  // namespace mv
