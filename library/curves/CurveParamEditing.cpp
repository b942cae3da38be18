// The changing operations of CurveParam: point edits with their invariants, the control point
// recomputation, limits and resampling.
#include <algorithm>
#include <cmath>

#include "curves/CurveParam.h"
#include "curves/ExprConstant.h"

namespace mv {

namespace {

constexpr double kEpsilon = CurveParam::kTolerance;

bool userControlled(int type) { return type == PointMirrored || type == PointFree; }

bool within(double value, double low, double high) { return value >= low && value <= high; }

// Whether point may not stand beside other (a point of another id).
bool pointsCollide(const CurvePoint& point, const CurvePoint& other) {
  if (userControlled(point.type)) {
    return within(other.x, point.inX, point.outX) || within(point.x, other.inX, other.outX);
  }
  if (userControlled(other.type)) return within(point.x, other.inX, other.outX);
  return std::fabs(point.x - other.x) < kEpsilon;
}

}  // namespace

bool CurveParam::collides(const CurvePoint& point) const {
  for (int index = 0; index < getPointCount(); ++index) {
    const CurvePoint& other = *getPoint(index);
    if (other.id != point.id && pointsCollide(point, other)) return true;
  }
  return false;
}

bool CurveParam::setPoint(const CurvePoint& point, bool mayAdd) {
  if (!within(point.x, 0.0, 1.0) || !within(point.inX, 0.0, 1.0) || !within(point.outX, 0.0, 1.0)) {
    return false;
  }
  if (userControlled(point.type) && !(point.inX <= point.x && point.x <= point.outX)) return false;
  if (collides(point)) return false;
  if (point.id == 0 || point.id == 1) return storeEndPoint(point);
  if (CurvePoint* existing = findInner(point.id)) {
    *existing = point;
  } else if (mayAdd) {
    inner_.push_back(point);
  } else {
    return false;
  }
  std::sort(inner_.begin(), inner_.end(),
            [](const CurvePoint& a, const CurvePoint& b) { return a.x < b.x; });
  recomputeControls();
  return true;
}

// An end point keeps its x exactly: it is shifted there, controls along.
bool CurveParam::storeEndPoint(CurvePoint point) {
  const double x = point.id == 0 ? 0.0 : 1.0;
  if (std::fabs(point.x - x) > kEpsilon) return false;
  point.shiftX(x - point.x);
  (point.id == 0 ? first_ : last_) = point;
  recomputeControls();
  return true;
}

int CurveParam::addPoint(double x, double y, int type) {
  if (x < kEpsilon || 1.0 - x < kEpsilon) {
    CurvePoint& end = x < kEpsilon ? first_ : last_;
    end.shiftY(y - end.y);
    recomputeControls();
    return end.id;
  }
  int32_t id = 3;
  for (const CurvePoint& point : inner_) id = std::max(id, point.id + 1);
  setPoint(CurvePoint::at(x, y, type, id), true);
  return id;
}

bool CurveParam::setPointX(int id, double x) {
  const CurvePoint* found = id >= 2 ? findInner(id) : nullptr;
  if (!found) return false;
  CurvePoint moved = *found;
  moved.shiftX(x - moved.x);
  setPoint(moved, false);
  return true;
}

bool CurveParam::setPointY(int id, double y) {
  const CurvePoint* found = findPoint(id);
  if (!found) return false;
  CurvePoint moved = *found;
  moved.shiftY(y - moved.y);
  if (id == 0 || id == 1) {
    (id == 0 ? first_ : last_) = moved;
  } else {
    setPoint(moved, false);
  }
  recomputeControls();
  return true;
}

bool CurveParam::setPointType(int id, int type) {
  CurvePoint* point = id == 0 ? &first_ : id == 1 ? &last_ : findInner(id);
  if (!point || type < PointCorner || type > PointFree) return false;
  if (type == PointMirrored && (id == 0 || id == 1)) return false;
  point->type = type;
  recomputeControls();
  return true;
}

void CurveParam::setAllPointTypes(int type) {
  for (int index = 0; index < getPointCount(); ++index) pointAt(index).type = type;
  recomputeControls();
}

bool CurveParam::deletePoint(int id) {
  const auto found =
      std::find_if(inner_.begin(), inner_.end(), [id](const CurvePoint& p) { return p.id == id; });
  if (id < 2 || found == inner_.end()) return false;
  inner_.erase(found);
  recomputeControls();
  return true;
}

void CurveParam::clearPoints() {
  inner_.clear();
  recomputeControls();
}

void CurveParam::scale(double factor) {
  minimum_ *= factor;
  maximum_ *= factor;
  for (int index = 0; index < getPointCount(); ++index) {
    CurvePoint point = pointAt(index);
    point.y *= factor;
    setPoint(point, false);
  }
}

bool CurveParam::multiply(double factor) {
  if (!expression_) {
    scale(factor);
    return true;
  }
  std::string text;
  expression_.print(text);
  return setExpression(ExprConstant::format(factor) + "*(" + text + ")");
}

bool CurveParam::setExpression(const std::string& text) {
  Expression parsed;
  if (!parsed.parse(text)) return false;
  expression_ = parsed;
  return true;
}

// Over the sequence of all points, each neighbour pair sets the previous point's out control
// and the next point's in control by the types of the two.
void CurveParam::recomputeControls() {
  for (int index = 0; index + 1 < getPointCount(); ++index) {
    setOutControl(index);
    setInControl(index + 1);
  }
}

// The out control of a smooth point: a third of the way to the next point in x; in y the mean of
// the slope from the previous point and the chord to the next one.
void CurveParam::setOutControl(int index) {
  CurvePoint& p = pointAt(index);
  const CurvePoint& n = pointAt(index + 1);
  if (p.type == PointCorner) {
    p.outX = p.x;
    p.outY = p.y;
  } else if (p.type == PointSmooth) {
    p.outX = p.x + (n.x - p.x) / 3.0;
    if (index > 0) {
      const CurvePoint& o = pointAt(index - 1);
      p.outY = p.y + (((p.y - o.y) / (p.x - o.x)) * (n.x - p.x) + (n.y - p.y)) * 0.5 / 3.0;
    } else {
      p.outY = p.y + (n.y - p.y) / 3.0;
    }
  }
}

void CurveParam::setInControl(int index) {
  CurvePoint& n = pointAt(index);
  const CurvePoint& p = pointAt(index - 1);
  if (n.type == PointCorner) {
    n.inX = n.x;
    n.inY = n.y;
  } else if (n.type == PointSmooth) {
    n.inX = n.x - (n.x - p.x) / 3.0;
    if (index + 1 < getPointCount()) {
      const CurvePoint& q = pointAt(index + 1);
      n.inY = n.y - ((n.y - p.y) + ((q.y - n.y) / (q.x - n.x)) * (n.x - p.x)) * 0.5 / 3.0;
    } else {
      n.inY = n.y - (n.y - p.y) / 3.0;
    }
  }
}

void CurveParam::valueRange(double& lowest, double& highest) const {
  lowest = highest = first_.y;
  for (int index = 1; index < getPointCount(); ++index) {
    lowest = std::min(lowest, getPoint(index)->y);
    highest = std::max(highest, getPoint(index)->y);
  }
}

void CurveParam::growLimits() {
  double lowest, highest;
  valueRange(lowest, highest);
  const double range = highest - lowest;
  if (!isLowerLimitFixed() && minimum_ > lowest) minimum_ = lowest - 0.1 * range;
  if (!isUpperLimitFixed() && maximum_ < highest) maximum_ = highest + 0.1 * range;
}

// A nearly flat curve is widened to a range of 0.01 first, while the margin stays a tenth of the
// range as measured.
void CurveParam::fitLimits() {
  double lowest, highest;
  valueRange(lowest, highest);
  const double range = highest - lowest;
  if (range < kEpsilon) return;
  const double margin = 0.1 * range;
  if (range < 0.01) {
    highest += (0.01 - range) / 2.0;
    lowest -= (0.01 - (highest - lowest)) / 2.0;
  }
  if (!isLowerLimitFixed() && (minimum_ > lowest || lowest - margin > minimum_)) {
    minimum_ = lowest - margin;
  }
  if (!isUpperLimitFixed() && (maximum_ < highest || maximum_ - margin > highest)) {
    maximum_ = highest + margin;
  }
}

// Samples are read in a fixed order, inner positions ascending, then 0, then 1, since the
// expression may consume the shared generator.
bool CurveParam::resample(int count, int type) {
  if (count < 2) return false;
  if (!expression_) return true;
  for (char name : expression_.variableNames()) {
    if (name != 'x' && name != 'u') return false;
  }
  std::vector<CurvePoint> samples;
  int32_t id = 2;
  for (int i = 1; i <= count - 2; ++i, ++id) {
    const double p = static_cast<double>(i) / (count - 1);
    if (p > kEpsilon && p < 0.99999999) samples.push_back(CurvePoint::at(p, evaluate(p), type, id));
  }
  const double firstY = evaluate(0.0);
  const double lastY = evaluate(1.0);
  first_ = CurvePoint::at(0.0, firstY, PointCorner, 0);
  last_ = CurvePoint::at(1.0, lastY, PointCorner, 1);
  inner_.swap(samples);
  double lowest, highest;
  valueRange(lowest, highest);
  minimum_ = lowest - 0.1;
  maximum_ = highest + 0.1;
  expression_.parse("id");
  recomputeControls();
  return true;
}

}  // namespace mv
