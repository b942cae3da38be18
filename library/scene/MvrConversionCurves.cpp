#include "scene/MvrConversionCurves.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "scene/MvrCurveConversion.h"

namespace mv {

namespace {

constexpr double kLimitMargin = 0.1;

CurveParam constant(double minimum, double maximum, double value) {
  return CurveParam(minimum, maximum, value, value, "id");
}

}  // namespace

CurveParam MvrConversionCurves::quarterAngle() { return constant(0.0, kPi, kPi / 2); }
CurveParam MvrConversionCurves::fullGrowth() { return constant(0.0, 1.0, 1.0); }
CurveParam MvrConversionCurves::halfDistribution() { return constant(0.0, 1.0, 0.5); }
CurveParam MvrConversionCurves::unitDensity() { return constant(0.0, 4.0, 1.0); }
CurveParam MvrConversionCurves::zeroCurve() { return constant(0.0, 1.0, 0.0); }

std::map<double, double> MvrConversionCurves::thinned(const std::map<double, double>& points) {
  const size_t limit = MvrCurveConversion::kMaxCurveKnots;
  if (points.size() <= limit) return points;
  messageSink.warning("A converted curve of " + std::to_string(points.size()) + " points keeps " +
                      std::to_string(limit) + " of them");
  const std::vector<std::pair<double, double>> all(points.begin(), points.end());
  std::map<double, double> kept;
  for (size_t k = 0; k < limit; ++k) kept.insert(all[k * (all.size() - 1) / (limit - 1)]);
  return kept;
}

CurveParam MvrConversionCurves::curveThrough(double minimum, double maximum,
                                             const std::map<double, double>& points,
                                             bool cornerEnds) {
  return CurveParam(minimum, maximum, thinned(points), cornerEnds);
}

std::vector<double> MvrConversionCurves::samplePositions(const std::vector<double>& positions) {
  std::vector<double> samples{0.0};
  if (positions.size() > 2)
    samples.insert(samples.end(), positions.begin() + 1, positions.end() - 1);
  samples.push_back(1.0);
  return samples;
}

bool MvrConversionCurves::clampCurve(CurveParam& curve, const std::vector<double>& positions,
                                     double low, double high) {
  std::map<double, double> clamped;
  bool outside = false;
  for (double u : samplePositions(positions)) {
    const double value = curve.evaluate(u);
    const double inside = std::clamp(value, low, high);
    // A NaN sample counts as outside and lands on the low limit.
    outside = outside || !(value == inside);
    clamped[u] = inside == inside ? inside : low;
  }
  if (!outside) return false;
  curve = curveThrough(low - kLimitMargin, high + kLimitMargin, clamped, false);
  return true;
}

}  // namespace mv
