#include "host/SplineObject.h"

#include <algorithm>
#include <cmath>

#include "core/MathConstants.h"
#include "host/LineObject.h"
#include "host/LineTag.h"
#include "host/SegmentTag.h"

namespace {

constexpr Int32 kMaxAdaptiveSteps = 64;

struct Run {
  std::vector<Vector> points;
  bool closed = false;
};

// The point at parameter u of span i of a Catmull-Rom run.
Vector cubicPoint(const Run& run, size_t i, Float u) {
  size_t n = run.points.size();
  auto at = [&](long k) {
    if (run.closed) return run.points[(k % static_cast<long>(n) + n) % n];
    return run.points[std::clamp<long>(k, 0, static_cast<long>(n) - 1)];
  };
  Vector p0 = at(i), p1 = at(i + 1);
  Vector m0 = (at(i + 1) - at(static_cast<long>(i) - 1)) * 0.5;
  Vector m1 = (at(i + 2) - at(i)) * 0.5;
  if (!run.closed && i == 0) m0 = p1 - p0;
  if (!run.closed && i + 2 >= n) m1 = p1 - p0;
  Float u2 = u * u, u3 = u2 * u;
  return p0 * (2 * u3 - 3 * u2 + 1) + m0 * (u3 - 2 * u2 + u) + p1 * (-2 * u3 + 3 * u2) +
         m1 * (u3 - u2);
}

Float turnBetween(const Vector& a, const Vector& b) {
  Float la = a.GetLength(), lb = b.GetLength();
  if (la <= 0.0 || lb <= 0.0) return 0.0;
  return std::acos(std::clamp(Dot(a, b) / (la * lb), -1.0, 1.0));
}

// The number of points inside a cubic span so that chords turn by at most `angle`.
Int32 adaptiveSteps(const Run& run, size_t span, Float angle) {
  Float turn = 0.0;
  Vector before = cubicPoint(run, span, 0.0), chord;
  for (Int32 k = 1; k <= kMaxAdaptiveSteps; ++k) {
    Vector next = cubicPoint(run, span, Float(k) / kMaxAdaptiveSteps);
    if (k > 1) turn += turnBetween(chord, next - before);
    chord = next - before;
    before = next;
  }
  if (angle <= 0.0) return kMaxAdaptiveSteps;
  return std::clamp(static_cast<Int32>(std::ceil(turn / angle)) - 1, 0, kMaxAdaptiveSteps);
}

Int32 stepsInside(const Run& run, size_t span, bool cubic, Int32 mode, Int32 number, Float angle) {
  if (mode == SPLINEOBJECT_INTERPOLATION_NONE) return 0;
  if (mode == SPLINEOBJECT_INTERPOLATION_ADAPTIVE) {
    return cubic ? adaptiveSteps(run, span, angle) : 0;
  }
  return std::clamp(number, 0, 1000);
}

std::vector<Vector> drawRun(const Run& run, bool cubic, Int32 mode, Int32 number, Float angle) {
  std::vector<Vector> line;
  size_t n = run.points.size();
  size_t spans = n < 2 ? 0 : (run.closed ? n : n - 1);
  for (size_t i = 0; i < spans; ++i) {
    line.push_back(run.points[i]);
    Int32 inside = stepsInside(run, i, cubic, mode, number, angle);
    for (Int32 k = 1; k <= inside; ++k) {
      Float u = Float(k) / (inside + 1);
      line.push_back(cubic ? cubicPoint(run, i, u)
                           : run.points[i] * (1 - u) + run.points[(i + 1) % n] * u);
    }
  }
  if (n == 1 || (n > 1 && !run.closed)) line.push_back(run.points[n - 1]);
  return line;
}

// Parameters along the run by length; a run of no length spreads them by index.
void fillParameters(const std::vector<Vector>& line, bool closed, Float* t) {
  size_t n = line.size();
  std::vector<Float> length(n, 0.0);
  for (size_t i = 1; i < n; ++i) length[i] = length[i - 1] + (line[i] - line[i - 1]).GetLength();
  Float total = n ? length[n - 1] + (closed ? (line[0] - line[n - 1]).GetLength() : 0.0) : 0.0;
  for (size_t i = 0; i < n; ++i) {
    t[i] = total > 0.0 ? length[i] / total : (n > 1 ? Float(i) / (n - 1) : 0.0);
  }
}

}  // namespace

SplineObject* SplineObject::Alloc(Int32 pointCount, Int32 type) {
  auto* spline = static_cast<SplineObject*>(BaseObject::Alloc(Ospline));
  if (spline && !spline->ResizeObject(pointCount, 0)) {
    BaseObject* base = spline;
    BaseObject::Free(base);
    return nullptr;
  }
  if (spline) spline->GetDataInstance()->SetLong(SPLINEOBJECT_TYPE, type);
  return spline;
}

Bool SplineObject::ResizeObject(Int32 pointCount, Int32 segmentCount) {
  if (segmentCount < 0 || segmentCount > VariableTag::kMaxCount || !ResizePoints(pointCount)) {
    return false;
  }
  tangents_.resize(pointCount);
  segments_.resize(segmentCount);
  SetDirty(DIRTYFLAGS_DATA);
  return true;
}

Int32 SplineObject::GetInterpolationType() const {
  return GetDataInstance()->GetLong(SPLINEOBJECT_TYPE, SPLINETYPE_LINEAR);
}

Bool SplineObject::IsClosed() const { return GetDataInstance()->GetBool(SPLINEOBJECT_CLOSED); }

LineObject* SplineObject::GetLineObject(BaseDocument*, Float, BaseThread*) const {
  const BaseContainer& data = *GetDataInstance();
  bool cubic = GetInterpolationType() != SPLINETYPE_LINEAR;
  Int32 mode = data.GetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_ADAPTIVE);
  Int32 number = data.GetLong(SPLINEOBJECT_SUB, 8);
  Float angle = data.GetReal(SPLINEOBJECT_ANGLE, 5.0 * mt::kPi / 180.0);
  Int64 perSpan = std::clamp(std::max(number, kMaxAdaptiveSteps), 0, 1000) + 1;
  if (GetPointCount() * perSpan > VariableTag::kMaxCount) return nullptr;  // no runaway lines
  std::vector<Segment> segments = segments_;
  if (segments.empty()) segments.push_back({GetPointCount(), false});
  std::vector<std::vector<Vector>> lines;
  std::vector<Segment> drawn;
  Int32 first = 0, total = 0;
  for (const Segment& segment : segments) {
    Run run;
    Int32 count = std::clamp(segment.cnt, 0, GetPointCount() - first);
    run.points.assign(GetPointR() + first, GetPointR() + first + count);
    run.closed = segment.closed || IsClosed();
    first += count;
    lines.push_back(drawRun(run, cubic, mode, number, angle));
    drawn.push_back({static_cast<Int32>(lines.back().size()), run.closed});
    total += drawn.back().cnt;
  }
  LineObject* line = LineObject::Alloc(total, static_cast<Int32>(drawn.size()));
  if (!line) return nullptr;
  Vector* points = line->GetPointW();
  Float* t = line->GetLineTag()->GetDataAddressW();
  for (size_t s = 0; s < lines.size(); ++s) {
    std::copy(lines[s].begin(), lines[s].end(), points);
    fillParameters(lines[s], drawn[s].closed, t);
    points += lines[s].size();
    t += lines[s].size();
    line->GetSegmentTag()->GetDataAddressW()[s] = drawn[s];
  }
  return line;
}

BaseObject* SplineObject::cloneObject() const {
  auto* clone = new SplineObject();
  copyPointsTo(clone);
  clone->segments_ = segments_;
  clone->tangents_ = tangents_;
  return clone;
}
