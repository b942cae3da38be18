// MvrConversionCurves: the fixed curves that the conversion of classic objects into growth nodes
// hands to the nodes, and clampCurve, which keeps a classic curve within the range that a growth
// parameter accepts. Every curve made here has the expression "id".
#pragma once

#include <map>
#include <vector>

#include "curves/CurveParam.h"

namespace mv {

class MvrConversionCurves {
 public:
  static CurveParam quarterAngle();      // 0 to pi, constant pi/2
  static CurveParam fullGrowth();        // 0 to 1, constant 1
  static CurveParam halfDistribution();  // 0 to 1, constant 0.5
  static CurveParam unitDensity();       // 0 to 4, constant 1
  static CurveParam zeroCurve();         // 0 to 1, constant 0

  // At most MvrCurveConversion::kMaxCurveKnots entries of points: the first, the last and an even
  // choice between, with a warning when some were left out. Building a curve costs more than linear
  // time in its points, and a broken file can ask for very many.
  static std::map<double, double> thinned(const std::map<double, double>& points);
  // The curve of the map constructor over the thinned points.
  static CurveParam curveThrough(double minimum, double maximum,
                                 const std::map<double, double>& points, bool cornerEnds);

  // The sample positions of clampCurve: u = 0, the entries of positions but the first and the
  // last, and u = 1.
  static std::vector<double> samplePositions(const std::vector<double>& positions);
  // When the curve leaves low to high at a sample, it is replaced by a curve through the clamped
  // samples with limits low - 0.1 and high + 0.1; otherwise it stays as it is. True when it was
  // replaced.
  static bool clampCurve(CurveParam& curve, const std::vector<double>& positions, double low,
                         double high);
};

}  // namespace mv
