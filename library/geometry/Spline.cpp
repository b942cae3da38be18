#include "geometry/Spline.h"

#include <algorithm>
#include <cmath>

#include "core/MathConstants.h"

namespace mv {

namespace {

constexpr double kTinyComponent = 1e-10;  // below this a direction is left as it is
constexpr double kFarAway = 1e38;

bool allComponentsAtMost(const Vector3& v, double limit) {
  return std::fabs(v.x) <= limit && std::fabs(v.y) <= limit && std::fabs(v.z) <= limit;
}

// A zero-length piece yields a (near) zero direction; dividing it by its length would only
// amplify noise, so tiny vectors pass through unchanged.
Vector3 normalizedUnlessTiny(const Vector3& v) {
  return allComponentsAtMost(v, kTinyComponent) ? v : v / v.length();
}

// Projects the reference's y axis off the tangent, so that a chain of frames does not twist.
Matrix4 carriedFrame(const Vector3& tangent, const Matrix4& reference, const Vector3& position) {
  const Vector3 z = normalizedUnlessTiny(tangent);
  Vector3 w = reference.row(1).cross(z);
  if (allComponentsAtMost(w, kZeroTolerance)) {  // tangent along the reference's y axis
    w = reference.row(0);
    if (allComponentsAtMost(w, kZeroTolerance)) w = {1, 0, 0};
  }
  const Vector3 y = normalizedUnlessTiny(z.cross(w));
  const Vector3 x = normalizedUnlessTiny(y.cross(z));
  return Matrix4::fromRows(x, y, z, position);
}

// The rotation taking the z axis to the tangent about an axis in the x-y plane.
Matrix4 angleFrame(const Vector3& tangent, const Vector3& position) {
  const Vector3 z = normalizedUnlessTiny(tangent);
  const double theta = std::acos(std::clamp(z.z, -1.0, 1.0));
  Matrix4 frame;
  if (theta > kZeroTolerance) {
    double px = z.x, py = z.y;
    if (std::fabs(px) > kTinyComponent || std::fabs(py) > kTinyComponent) {
      const double planar = std::hypot(px, py);
      px /= planar;
      py /= planar;
    }
    double phi = std::acos(std::clamp(-py, -1.0, 1.0));
    if (z.x > 0.0) phi = -phi;
    frame = Matrix4::rotationZ(phi) * Matrix4::rotationX(theta) * Matrix4::rotationZ(-phi);
  }
  frame.setRow(3, position);
  return frame;
}

// Nearest place on the piece from a to b; taken, with true, when strictly nearer than best.
bool takeIfNearer(const Vector3& point, const Spline::Point& a, const Spline::Point& b,
                  double& best, double& t) {
  const Vector3 ab = b.position - a.position;
  const double lengthSquared = ab.dot(ab);
  const double f = lengthSquared > 0.0 ? (point - a.position).dot(ab) / lengthSquared : 0.0;
  const Vector3 foot = f <= 0.0 ? a.position : f >= 1.0 ? b.position : a.position + ab * f;
  const double distance = (point - foot).length();
  if (!(distance < best)) return false;
  best = distance;
  const double along =
      lengthSquared > 0.0 ? (foot - a.position).length() / std::sqrt(lengthSquared) : 0.0;
  t = a.t + (b.t - a.t) * along;
  return true;
}

}  // namespace

bool Spline::segmentRange(uint32_t segment, uint32_t& first, uint32_t& count) const {
  if (segment >= getSegmentCount()) return false;
  uint64_t start = 0;
  for (uint32_t s = 0; s < segment; ++s) start += getSegmentPointCount(s);
  count = getSegmentPointCount(segment);
  if (start + count > getPointCount()) return false;
  first = static_cast<uint32_t>(start);
  return true;
}

bool Spline::findSegmentOfPoint(uint32_t index, uint32_t& segment, uint32_t& first,
                                uint32_t& count) const {
  const uint32_t segments = getSegmentCount();
  uint64_t start = 0;
  for (uint32_t s = 0; s < segments; ++s) {
    const uint32_t n = getSegmentPointCount(s);
    if (index < start + n) {
      if (start + n > getPointCount()) return false;
      segment = s;
      first = static_cast<uint32_t>(start);
      count = n;
      return true;
    }
    start += n;
  }
  return false;
}

Spline::Point Spline::pointAt(uint32_t index) const {
  Point point;
  if (!getPoint(index, point.t, point.position)) point = Point();
  return point;
}

bool Spline::findFirstAtOrAbove(double t, uint32_t begin, uint32_t end, uint32_t& index) const {
  for (uint32_t i = begin; i < end; ++i) {
    if (pointAt(i).t >= t) {
      index = i;
      return true;
    }
  }
  return false;
}

void Spline::getTangent(double t, uint32_t segment, bool smooth, Vector3& tangent) const {
  tangent = Vector3();
  uint32_t first = 0, n = 0;
  if (!segmentRange(segment, first, n) || n < 2) return;
  if (n == 2) {
    tangent = pointAt(first + 1).position - pointAt(first).position;
    return;
  }
  const uint32_t end = first + n;
  uint32_t i = 0;
  if (!findFirstAtOrAbove(t, first + 1, end, i)) return;
  tangent =
      smooth ? smoothTangent(t, first, end, i) : pointAt(i).position - pointAt(i - 1).position;
}

Vector3 Spline::smoothTangent(double t, uint32_t first, uint32_t end, uint32_t i) const {
  const Point before = pointAt(i - 1), after = pointAt(i);
  const uint32_t k = std::fabs(t - before.t) < std::fabs(after.t - t) ? i - 1 : i;
  if (k == first) return pointAt(k + 1).position - pointAt(k).position;
  if (k == end - 1) return pointAt(k).position - pointAt(k - 1).position;
  const Point p0 = pointAt(k - 1), p1 = pointAt(k), p2 = pointAt(k + 1);
  const double m0 = (p0.t + p1.t) / 2, m1 = (p2.t + p1.t) / 2;
  // Three points on one parameter leave no ramp to run along: take the mean direction.
  const double f = m1 != m0 ? (t - m0) / (m1 - m0) : 0.5;
  const Vector3 d0 = normalizedUnlessTiny(p1.position - p0.position);
  const Vector3 d1 = normalizedUnlessTiny(p2.position - p1.position);
  return d0 * (1 - f) + d1 * f;
}

void Spline::getFrame(double t, const Matrix4& reference, uint32_t segment, bool smooth,
                      Matrix4& frame) const {
  Vector3 tangent, position;
  getTangent(t, segment, smooth, tangent);
  getPosition(t, segment, smooth, position);
  frame = carriedFrame(tangent, reference, position);
}

void Spline::getAngleFrame(double t, uint32_t segment, bool smooth, Matrix4& frame) const {
  Vector3 tangent, position;
  getTangent(t, segment, smooth, tangent);
  getPosition(t, segment, smooth, position);
  frame = angleFrame(tangent, position);
}

bool Spline::getPoint(uint32_t, double&, Vector3&) const { return false; }

bool Spline::getPointTangent(uint32_t index, double& t, Vector3& tangent) const {
  const uint32_t total = getPointCount();
  if (index >= total) return false;
  if (total == 1) {
    t = 0.0;
    tangent = {0, 0, 1};
    return true;
  }
  uint32_t segment = 0, first = 0, n = 0;
  if (!findSegmentOfPoint(index, segment, first, n) || n < 2) return false;
  const uint32_t last = first + n - 1;
  const bool closed = isSegmentClosed(segment);
  const Point here = pointAt(index);
  t = here.t;
  if (!closed && index == first) {
    tangent = pointAt(first + 1).position - here.position;
  } else if (!closed && index == last) {
    tangent = here.position - pointAt(last - 1).position;
  } else {
    const Point previous = pointAt(index == first ? last : index - 1);
    const Point next = pointAt(index == last ? first : index + 1);
    tangent = (normalizedUnlessTiny(here.position - previous.position) +
               normalizedUnlessTiny(next.position - here.position)) /
              2;
  }
  return true;
}

bool Spline::getPointFrame(uint32_t index, const Matrix4& reference, double& t,
                           Matrix4& frame) const {
  Vector3 tangent, position;
  double pointT = 0.0;
  if (!getPointTangent(index, t, tangent) || !getPoint(index, pointT, position)) return false;
  frame = carriedFrame(tangent, reference, position);
  return true;
}

bool Spline::getPointAngleFrame(uint32_t index, double& t, Matrix4& frame) const {
  Vector3 tangent, position;
  double pointT = 0.0;
  if (!getPointTangent(index, t, tangent) || !getPoint(index, pointT, position)) return false;
  frame = angleFrame(tangent, position);
  return true;
}

bool Spline::findClosest(const Vector3& point, uint32_t& segment, double& t) const {
  double best = kFarAway;
  bool found = false;
  const auto consider = [&](uint32_t s, uint32_t a, uint32_t b) {
    if (!takeIfNearer(point, pointAt(a), pointAt(b), best, t)) return;
    segment = s;
    found = true;
  };
  const uint32_t segments = getSegmentCount();
  for (uint32_t s = 0; s < segments; ++s) {
    uint32_t first = 0, n = 0;
    if (!segmentRange(s, first, n) || n == 0) continue;
    const uint32_t last = first + n - 1;
    for (uint32_t i = first; i < last; ++i) consider(s, i, i + 1);
    if (isSegmentClosed(s)) consider(s, last, first);
  }
  return found;
}

bool Spline::allocate(uint32_t, uint32_t) { return false; }
bool Spline::finish() { return false; }
bool Spline::setPoint(uint32_t, double, const Vector3&) { return false; }
bool Spline::setSegment(uint32_t, uint32_t, bool) { return false; }

bool Spline::copy(const Spline& source) {
  if (&source == this) return finish();  // allocate would wipe what is to be copied
  const uint32_t pointCount = source.getPointCount();
  const uint32_t segmentCount = source.getSegmentCount();
  if (!allocate(pointCount, segmentCount)) return false;
  for (uint32_t i = 0; i < pointCount; ++i) {
    const Point point = source.pointAt(i);
    setPoint(i, point.t, point.position);
  }
  for (uint32_t s = 0; s < segmentCount; ++s) {
    setSegment(s, source.getSegmentPointCount(s), source.isSegmentClosed(s));
  }
  return finish();
}

bool Spline::transform(const Matrix4& matrix) {
  const uint32_t count = getPointCount();
  for (uint32_t i = 0; i < count; ++i) {
    const Point point = pointAt(i);
    setPoint(i, point.t, matrix.transformPoint(point.position));
  }
  return true;
}

bool Spline::makeCircle(double radius, uint32_t n) {
  // Fewer than three points make no circle: a triangle stands in, allocated in full.
  const uint32_t m = std::max(n, 3u);
  if (!allocate(m, 1)) return false;
  for (uint32_t i = 0; i < m; ++i) {
    const double t = static_cast<double>(i) / m;
    setPoint(i, t, {radius * std::sin(kTwoPi * t), radius * std::cos(kTwoPi * t), 0.0});
  }
  setSegment(0, m, true);
  return finish();
}

}  // namespace mv
