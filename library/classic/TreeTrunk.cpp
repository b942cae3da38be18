#include "classic/detail/TreeTrunk.h"

#include <algorithm>
#include <cmath>

#include "classic/detail/CountLimit.h"
#include "core/MathConstants.h"
#include "curves/CurveParam.h"
#include "curves/CurveParamIntegration.h"

namespace mv {

namespace {

constexpr double kSixtyDegrees = 1.0471975511965976;
constexpr double kSpreadBias = 5e-6;

Matrix4 transposed(const Matrix4& m) {
  Matrix4 t;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) t.at(r, c) = m.at(c, r);
  }
  return t;
}

// Turns about x by a, y by b and z by c, in that order, each from the left; zero angles are
// skipped.
Matrix4 eulerStep(Matrix4 m, double a, double b, double c) {
  if (a != 0.0) m = Matrix4::rotationX(-a) * m;
  if (b != 0.0) m = Matrix4::rotationY(b) * m;
  if (c != 0.0) m = Matrix4::rotationZ(-c) * m;
  return m;
}

// The default "no kink, no wander" curve: three keys, all zero.
bool isFlatZero(const CurveParam& curve) {
  if (curve.getPointCount() != 3) return false;
  for (int i = 0; i < 3; ++i) {
    if (curve.getPoint(i)->y != 0.0) return false;
  }
  return true;
}

bool isNearZero(const Vector3& v) {
  return std::fabs(v.x) <= kZeroTolerance && std::fabs(v.y) <= kZeroTolerance &&
         std::fabs(v.z) <= kZeroTolerance;
}

// Removes the y part of w's first row by a turn about z, applied to the walker and the frame.
void level(Matrix4& walker, Matrix4& frame) {
  const double w0 = walker.at(0, 0), w1 = walker.at(0, 1);
  const double d = std::sqrt(w0 * w0 + w1 * w1);
  if (d <= kZeroTolerance) return;
  const Matrix4 r = Matrix4::fromRows({w0 / d, w1 / d, 0}, {-w1 / d, w0 / d, 0}, {0, 0, 1}, {});
  walker = walker * transposed(r);
  frame = r * frame;
}

}  // namespace

std::vector<double> TreeTrunk::branchPositions(const CurveParam& curve, double branchNum,
                                               int version, double density) {
  double n = branchNum + 1.0;
  if (version > 3) n /= density;
  const int m = limitedCount(n, kMaxKnots, "Branch count");
  if (m < 1) return {};
  CurveParamIntegration integration(&curve);
  const double total = integration.integrate(0.0, 1.0);
  if (!(std::fabs(total) > kIntegralTolerance)) return {};
  std::vector<double> positions;
  positions.reserve(static_cast<size_t>(m) + 1);
  positions.push_back(0.0);
  for (int k = 1; k <= m; ++k) positions.push_back(integration.solve(0.0, 1.0, k * total / n));
  return positions;
}

std::vector<TreeSample> TreeTrunk::insertSamples(const std::vector<double>& positions, int extra) {
  if (positions.empty()) return {};
  if (positions.size() == 1) return {{positions[0], true}};
  std::vector<TreeSample> out;
  if (extra < 1) {
    for (double position : positions) out.push_back({position, true});
    return out;
  }
  out.reserve(positions.size() + static_cast<size_t>(extra) + 1);
  const double span = positions.back() - positions.front();
  double carry = 0.0;
  for (size_t i = 0; i + 1 < positions.size(); ++i) {
    const double left = positions[i], d = positions[i + 1] - left;
    out.push_back({left, true});
    const double share = (kSpreadBias + d + carry) / span;
    int taken = 0;
    if (i + 2 == positions.size() || share > 1.0) {
      taken = extra;
    } else if (share > 0.0) {
      taken = static_cast<int>(extra * share);
    }
    if (taken <= 0) {
      carry += d;
      continue;
    }
    for (int j = 1; j <= taken; ++j) out.push_back({left + j * d / (taken + 1), false});
    carry += d / span - static_cast<double>(taken) / extra;
    extra -= taken;
  }
  out.push_back({1.0, true});
  return out;
}

Matrix4 TreeTrunk::alignToZ(const Vector3& v) {
  const double l = v.length();
  if (!(l >= kZeroTolerance)) return Matrix4();
  const double d = std::sqrt(v.y * v.y + v.z * v.z);
  Matrix4 x;
  double xx = v.x, zz = v.z;
  if (d > kZeroTolerance) {
    x = Matrix4::fromRows({1, 0, 0}, {0, v.z / d, -v.y / d}, {0, v.y / d, v.z / d}, {});
    zz = d;
  }
  const Matrix4 y = Matrix4::fromRows({zz / l, 0, -xx / l}, {0, 1, 0}, {xx / l, 0, zz / l}, {});
  return y * x;
}

TreeTrunk::TreeTrunk(const Settings& settings, const std::vector<double>& positions)
    : settings_(settings) {
  if (positions.empty()) return;
  const double gaps = static_cast<double>(positions.size() - 1) * settings.kruschtlKnots;
  const std::vector<TreeSample> wander =
      insertSamples(positions, limitedCount(gaps, kMaxSamples, "Trunk wander samples"));
  const int segments = limitedCount(settings.segments, kMaxSamples, "Trunk segments");
  const double extra = settings.version < 4 ? segments - static_cast<double>(positions.size())
                                            : std::trunc(segments / settings.density) -
                                                  static_cast<double>(positions.size());
  samples_ = insertSamples(positions, limitedCount(extra, kMaxSamples, "Trunk samples"));
  samples_.back().knot = false;

  const bool onPath = settings.path && !settings.path->keys.empty();
  std::vector<Vector3> points;
  points.reserve(wander.size());
  for (const TreeSample& sample : wander) {
    points.push_back(onPath ? settings.path->pointAt(sample.u)
                            : Vector3{0, 0, sample.u * settings.length});
  }
  length_ = onPath ? settings.path->length() : settings.length;
  if (isStraight()) {
    keyPoints(points, std::vector<double>(points.size(), 0.0), 0.0);
  } else {
    bend(wander, points);
  }
  samples_.back().u = 1.0;
}

bool TreeTrunk::isStraight() const {
  return isFlatZero(*settings_.deviate) && isFlatZero(*settings_.kruschtl);
}

// The knots of the trunk bend by deviate and are followed by the rest; the samples in between
// wander sideways by kruschtl, turning with the screw. The samples' parameters become their arc
// lengths along the bent trunk, relative to the whole.
void TreeTrunk::bend(const std::vector<TreeSample>& wander, std::vector<Vector3>& points) {
  const std::vector<size_t> targets = knotTargets();
  const CurveParam& screw = *settings_.screw;
  const double sign = settings_.version < 6 ? 1.0 : -1.0;
  Matrix4 bent, unbend;
  double screwSum = 0.0, knotScrew = 0.0, arc = 0.0;
  Vector3 lastKnot = points[0];
  std::vector<double> arcs(points.size(), 0.0);
  size_t knotOrdinal = 0;
  for (size_t i = 0; i < wander.size(); ++i) {
    const double u = wander[i].u;
    const Vector3 unbent = points[i];
    screwSum += screw.evaluate(u);
    if (i > 0 && !wander[i].knot) {
      Vector3 q = unbend.transformPoint(unbent);
      const CurveParam& kruschtl = *settings_.kruschtl;
      const double k = std::clamp(kruschtl.evaluate(u), kruschtl.minimum(), kruschtl.maximum());
      if (std::fabs(k) > kZeroTolerance)
        q += Vector3{std::sin(screwSum) * k, std::cos(screwSum) * k, 0};
      points[i] = bent.transformPoint(q);
    } else if (i > 0) {
      knotScrew += screw.evaluate(u);
      const double d = (unbent - lastKnot).length();
      lastKnot = unbent;
      const Vector3 q = unbend.transformPoint(unbent);
      Matrix4 turn = alignToZ(q);
      unbend = unbend * transposed(turn) * Matrix4::translation({0, 0, -d});
      turn.setRow(3, q);
      bent = turn * bent;
      const double dv = std::clamp(settings_.deviate->evaluate(u), 0.0, 1.0) * sign;
      if (std::fabs(dv) > kZeroTolerance) {
        bent = eulerStep(eulerStep(bent, 0, 0, knotScrew), -dv * kSixtyDegrees, 0, -knotScrew);
      }
      points[i] = bent.position();
    }
    if (i > 0) arc += (points[i] - points[i - 1]).length();
    arcs[i] = arc;
    if (wander[i].knot) spreadSamples(targets, knotOrdinal++, arc);
  }
  if (arc > 0.0) {
    for (TreeSample& sample : samples_) sample.u /= arc;
  }
  length_ = arc;
  keyPoints(points, arcs, arc);
}

// Indices of the samples that the knots of the wander list land on: the knots, then the last.
std::vector<size_t> TreeTrunk::knotTargets() const {
  std::vector<size_t> targets;
  for (size_t i = 0; i < samples_.size(); ++i) {
    if (samples_[i].knot || i + 1 == samples_.size()) targets.push_back(i);
  }
  return targets;
}

// Knot number knot lies at arc; the samples since the knot before are spread evenly between.
void TreeTrunk::spreadSamples(const std::vector<size_t>& targets, size_t knot, double arc) {
  if (knot >= targets.size()) return;
  const size_t to = targets[knot];
  if (knot > 0) {
    const size_t from = targets[knot - 1];
    // Single precision on purpose: the samples are spread as the original spread them, in
    // 32-bit floats, so that old scene files give the same positions to the last bit.
    const float start = static_cast<float>(samples_[from].u);
    const float span = static_cast<float>(arc) - start;
    const float gaps = static_cast<float>(to - from);
    for (size_t j = from + 1; j < to; ++j) {
      samples_[j].u = start + span * static_cast<float>(j - from) / gaps;
    }
  }
  samples_[to].u = arc;
}

// Keys the trunk spline by relative arc length, or evenly when there is no length to measure.
void TreeTrunk::keyPoints(const std::vector<Vector3>& points, const std::vector<double>& arcs,
                          double arc) {
  const size_t n = points.size();
  for (size_t i = 0; i < n; ++i) {
    const double t = arc > 0.0 ? arcs[i] / arc : (n > 1 ? static_cast<double>(i) / (n - 1) : 0.0);
    trunk_.keys[t] = points[i];
  }
}

// The factor 20 stands where a path's length would: a tree without a path counts as 20 long,
// and len / 20 scales that back, so a path of length 20 gives the same steps as no path.
double TreeTrunk::stepLength(size_t i) const {
  const double du = i == 0 ? samples_[0].u : samples_[i].u - samples_[i - 1].u;
  const bool onPath = settings_.path && !settings_.path->keys.empty();
  const double density = settings_.version < 4 ? settings_.density : 1.0;
  return du * (onPath ? settings_.length : 20.0) * density * length_ / 20.0;
}

std::vector<TreeFrame> TreeTrunk::buildFrames() const {
  std::vector<TreeFrame> frames;
  frames.reserve(samples_.size());
  std::vector<size_t> knots;
  for (size_t i = 0; i < samples_.size(); ++i) {
    if (samples_[i].knot) knots.push_back(i);
  }
  Matrix4 walker, frame;
  size_t nextKnot = 0;  // index into knots of the first knot after the current sample
  for (size_t i = 0; i < samples_.size(); ++i) {
    while (nextKnot < knots.size() && knots[nextKnot] <= i) ++nextKnot;
    const Vector3 q = walker.transformPoint(trunk_.pointAt(samples_[i].u));
    if (!isNearZero(q)) {
      const double l = q.length();
      Matrix4 turn = alignToZ(q);
      walker = walker * transposed(turn) * Matrix4::translation({0, 0, -l});
      frame = Matrix4::translation({0, 0, stepLength(i)}) * turn * frame;
      if (samples_[i].knot && nextKnot < knots.size()) {
        // At a knot the frame faces along the chord from the knot before to the knot after.
        const double before = nextKnot >= 2 ? samples_[knots[nextKnot - 2]].u : samples_[0].u;
        const Vector3 chord = trunk_.pointAt(samples_[knots[nextKnot]].u) - trunk_.pointAt(before);
        turn = alignToZ(walker.transformVector(chord));
        walker = walker * transposed(turn);
        frame = turn * frame;
      }
      level(walker, frame);
    }
    frames.push_back({samples_[i].u, frame});
  }
  return frames;
}

}  // namespace mv
