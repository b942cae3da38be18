// MvrCurveConversion: turns the values of a scene file into curve parameters: ranges (with their
// function text rewritten from the classic syntax), knot lists and knot paths.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "core/Vector3.h"
#include "curves/CurveParam.h"
#include "scene/MvrHornRecord.h"
#include "scene/MvrRange.h"

namespace mv {

class MvrCurveConversion {
 public:
  // Knots that one curve takes at most; further knots of a list are dropped with a warning.
  // Drawn curves of plants have some tens of points, and building a curve costs more than
  // linear time in its points.
  static constexpr std::size_t kMaxCurveKnots = 1024;

  // Rewrites a classic function text into the expression syntax: the text up to its first white
  // space, with the classic variables frame(x), ftime(x), iter(x), chdrn(x), rec(x) replaced by
  // f, a, i, n and 0. Everything else stays as it was.
  static std::string translateFunction(const std::string& text);

  // The curve of a range: limits min and max, from start to end, the translated function. A
  // constant "cos" or "cos(x)" range from 0 to 0 becomes the constant 1 (cos 0) between -1 and 2.
  static CurveParam curveOf(const MvrRange& range);
  // As curveOf without any rewriting of the function text.
  static CurveParam directCurveOf(const MvrRange& range);

  // Knot x to knot y, for the first kMaxCurveKnots knots. With flatten, knots that all agree in y
  // (within 1e-8) become keys 0 and 1.
  static std::map<double, double> knotCurve(const std::vector<Vector3>& knots, bool flatten);
  // The curve through knotCurve, limits 0 and upper, expression "id".
  static CurveParam curveOfKnots(const std::vector<Vector3>& knots, bool flatten, double upper);
  // knotCurve with every value multiplied by factor, limits 0 and upper.
  static CurveParam scaledKnotCurve(const std::vector<Vector3>& knots, double factor, double upper);
  // The first kMaxCurveKnots shape knots turned round: key (y - ymin) / (ymax - ymin), value x,
  // limits xmin and xmax. With fewer than two knots, or no spread in y, the constant 1 between -0.1
  // and 1.1.
  static CurveParam normalisedShape(const std::vector<Vector3>& knots);
  // Each knot keyed by its arc length from the first divided by the whole length, or by i/(n-1)
  // when the length is 0 (or not finite).
  static MvrPath arcLengthPath(const std::vector<Vector3>& knots);
};

}  // namespace mv
