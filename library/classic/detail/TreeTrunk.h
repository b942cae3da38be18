// TreeTrunk: the trunk construction of the classic tree. Branch knots are laid out first, by the
// integral of a branchiness curve; the trunk polyline bends at each knot (deviate) and wanders
// between them (kruschtl), is measured by its arc length, and is then walked to a chain of frames
// that follow it. The scene conversion runs the same construction to learn where a trunk lies.
#pragma once

#include <vector>

#include "classic/ClassicSpline.h"
#include "classic/TreeFrame.h"
#include "classic/detail/TreeSample.h"

namespace mv {

class CurveParam;

class TreeTrunk {
 public:
  // Knots and samples beyond these counts only come from broken files.
  static constexpr int kMaxKnots = 100000;
  static constexpr int kMaxSamples = 100000;

  // What the construction reads. The curves must not be null; screw is the one in use.
  struct Settings {
    const ClassicSpline* path = nullptr;  // no keys: a straight trunk along z
    double length = 1.0;
    double segments = 19.0;
    double kruschtlKnots = 2.0;
    const CurveParam* deviate = nullptr;
    const CurveParam* kruschtl = nullptr;
    const CurveParam* screw = nullptr;
    int version = 6;
    double density = 1.0;  // the carried density
  };

  // The knot parameters: 0, then where the integral of curve reaches each k / n of its total.
  static std::vector<double> branchPositions(const CurveParam& curve, double branchNum, int version,
                                             double density);
  // The positions as knots, extra samples spread over the intervals by their length, and a last
  // knot at 1.0.
  static std::vector<TreeSample> insertSamples(const std::vector<double>& positions, int extra);
  // A rotation whose z row is v normalised; the identity for a v shorter than 1e-8.
  static Matrix4 alignToZ(const Vector3& v);

  // Builds the trunk polyline and the samples along it from the knot positions.
  TreeTrunk(const Settings& settings, const std::vector<double>& positions);

  // The walk along the samples: one frame per sample, x its relative arc length.
  std::vector<TreeFrame> buildFrames() const;

  const ClassicSpline& spline() const { return trunk_; }
  const std::vector<TreeSample>& samples() const { return samples_; }
  double length() const { return length_; }

 private:
  bool isStraight() const;
  void bend(const std::vector<TreeSample>& wander, std::vector<Vector3>& points);
  std::vector<size_t> knotTargets() const;
  void spreadSamples(const std::vector<size_t>& targets, size_t knot, double arc);
  void keyPoints(const std::vector<Vector3>& points, const std::vector<double>& arcs, double arc);
  double stepLength(size_t i) const;

  Settings settings_;
  ClassicSpline trunk_;
  std::vector<TreeSample> samples_;
  double length_ = 0.0;
};

}  // namespace mv
