#include "growth/Phyllotaxis.h"

#include <cmath>
#include <string>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "curves/CurveParam.h"
#include "geometry/Spline.h"
#include "growth/PhyllotaxisIntegration.h"

namespace mv {
namespace {

struct PhyllotaxisInputs {
  Spline* profile = nullptr;
  CurveParam* divergence = nullptr;
  CurveParam* scale = nullptr;
  CurveParam* nodeGrowth = nullptr;
  CurveParam* tilt = nullptr;
  bool fractional = true;
  bool followPath = true;
  bool growthCurved = false;
  double number = 0.0;
  double spacingByScale = 1.0;
  double inheritedGrowth = 1.0;
  double inheritedThickness = 1.0;
};

// The element sequence after reduction.
struct Sequence {
  double n = 0.0;     // the reduced number
  double k = 1.0;     // compensating scale of every element
  int count = 0;      // elements made
  double even = 0.0;  // N: the number that equal spacing divides by
};

// The state carried from one element to the next.
struct Cursor {
  double x = 0.0;  // place on the profile
  double d = 0.0;  // divergence sum
  Matrix4 frame;   // carried profile frame, when following the path
};

bool readInputs(ParameterSet& params, PhyllotaxisInputs& in) {
  in.profile = params.getSpline(Phyllotaxis::pathSpline);
  in.divergence = params.getCurve(Phyllotaxis::divergence);
  in.scale = params.getCurve(Phyllotaxis::scale);
  in.nodeGrowth = params.getCurve(Phyllotaxis::nodeGrowth);
  in.tilt = params.getCurve(Phyllotaxis::tilt);
  in.fractional = params.getBool(Phyllotaxis::numberFractional);
  in.followPath = params.getBool(Phyllotaxis::followPath);
  in.growthCurved = params.getBool(Phyllotaxis::nodeGrowthCurved);
  in.number = params.getDouble(Phyllotaxis::number);
  in.spacingByScale = params.getDouble(Phyllotaxis::spacingByScale);
  in.inheritedGrowth = params.getDouble(IdCarriedGrowth);
  in.inheritedThickness = params.getDouble(IdCarriedThickness);
  const bool complete = in.divergence && in.scale && in.nodeGrowth && in.profile &&
                        (in.tilt || in.followPath) && in.number >= kZeroTolerance;
  if (!complete) messageSink.error("Parameter Retrieval failed!");
  return complete;
}

// The level of detail pulls the number toward the minimum; the remaining elements grow.
Sequence reduce(ParameterSet& params, const PhyllotaxisInputs& in, double lod) {
  Sequence seq;
  seq.n = in.number;
  if (params.getInt(Phyllotaxis::reductionMode) != 1) return seq;
  const double minimum = std::fmin(params.getDouble(Phyllotaxis::reductionMinimum), in.number);
  const double compensation = params.getDouble(Phyllotaxis::reductionCompensation);
  seq.n = in.number * lod + (1.0 - lod) * minimum;
  if (seq.n > 0.0) seq.k = (1.0 - compensation) + (in.number / seq.n) * compensation;
  return seq;
}

// The element count; false when there is none, or too many to hold.
bool countElements(const PhyllotaxisInputs& in, Sequence& seq) {
  const double count = in.fractional ? std::ceil(seq.n) : std::floor(seq.n);
  if (!(count >= 1.0)) return false;
  if (count > Phyllotaxis::kMaxElements) {
    messageSink.error("Phyllotaxis: too many elements (above " +
                      std::to_string(static_cast<int>(Phyllotaxis::kMaxElements)) + ")");
    return false;
  }
  seq.count = static_cast<int>(count);
  seq.even = in.fractional ? seq.n : count;
  return true;
}

// The sum of the squared scales that spacing by scale divides the area among; the fraction of
// a shrinking last element counts in proportion.
double scaleSum(const PhyllotaxisInputs& in, const Sequence& seq) {
  double sum = 0.0;
  for (int i = 0; in.fractional ? i < seq.n - 1.0 : i < seq.count - 1; ++i) {
    const double u = in.fractional ? std::fmin(std::fmax(i / (seq.n - 1.0), 0.0), 1.0)
                                   : static_cast<double>(i) / (seq.count - 1);
    const double s = in.scale->evaluate(u);
    const double r = seq.n - 1.0 - i;
    sum += r > 0.0 && r < 1.0 ? s * s * r : s * s;
  }
  return sum;
}

// The profile's frame re-dealt to the element's axes, then turned about the axis by d.
Matrix4 followFrame(const Matrix4& frame, double d) {
  const Matrix4 deal = Matrix4::fromRows({0, -1, 0}, {0, 0, -1}, {1, 0, 0}, {0, 0, 0});
  return deal * frame * Matrix4::rotationZ(kHalfPi - d);
}

// Tilted about x, stood at the profile point's distance from the axis and height, carried
// round the axis by a.
Matrix4 placeOnAxis(const Vector3& position, double tilt, double a) {
  Matrix4 stand = Matrix4::rotationX(tilt);
  stand.setRow(3, {0.0, std::sqrt(position.x * position.x + position.y * position.y), position.z});
  return stand * Matrix4::rotationZ(a);
}

Matrix4 elementMatrix(const PhyllotaxisInputs& in, Cursor& cursor, double u, bool first) {
  if (in.followPath) {
    if (first) {
      in.profile->getAngleFrame(0.0, 0, true, cursor.frame);
    } else {
      const Matrix4 reference = cursor.frame;
      in.profile->getFrame(cursor.x, reference, 0, true, cursor.frame);
    }
    return followFrame(cursor.frame, cursor.d);
  }
  Vector3 position;
  in.profile->getPosition(cursor.x, 0, true, position);
  return placeOnAxis(position, in.tilt->evaluate(u) + kPi, -cursor.d);
}

Placement finishElement(const PhyllotaxisInputs& in, const Sequence& seq, Matrix4 matrix, double u,
                        double rem) {
  const double s = in.scale->evaluate(u);
  matrix.scale({s, s, s});
  if (rem > 0.0 && rem < 1.0) matrix.scale({rem, rem, rem});  // the shrinking last element
  if (seq.k != 1.0) matrix.scale({seq.k, seq.k, seq.k});
  Placement element;
  element.matrix = matrix;
  element.carriedGrowth = in.inheritedGrowth * (in.growthCurved ? in.nodeGrowth->evaluate(u) : 1.0);
  element.carriedThickness = in.inheritedThickness;
  element.wantsData = true;
  element.count = seq.count;
  return element;
}

// The area that element i - 1 takes before element i.
double areaStep(const PhyllotaxisInputs& in, const Sequence& seq, int i, double byScale,
                double even) {
  if (!(in.spacingByScale > 0.0)) return even;
  const double s = in.scale->evaluate(static_cast<double>(i - 1) / (seq.count - 1));
  return s * s * in.spacingByScale * byScale + (1.0 - in.spacingByScale) * even;
}

std::vector<Placement> spreadElements(const PhyllotaxisInputs& in, const Sequence& seq) {
  PhyllotaxisIntegration area(in.profile);
  const double total = area.integrate(0.0, 1.0);
  const double byScale = total / scaleSum(in, seq);
  const double even = total / (seq.even - 1.0);
  std::vector<Placement> elements;
  Cursor cursor;
  elements.push_back(finishElement(in, seq, elementMatrix(in, cursor, 0.0, true), 0.0, seq.n));
  cursor.d = in.divergence->evaluate(0.0);
  for (int i = 1; i < seq.count; ++i) {
    cursor.x = area.solve(cursor.x, 1.0, areaStep(in, seq, i, byScale, even));
    const double u = in.fractional ? std::fmin(std::fmax(i / seq.n, 0.0), 1.0)
                                   : static_cast<double>(i) / (seq.count - 1);
    elements.push_back(finishElement(in, seq, elementMatrix(in, cursor, u, false), u, seq.n - i));
    elements.back().position = cursor.x;
    elements.back().index = i;
    cursor.d += in.divergence->evaluate(u);
  }
  return elements;
}

}  // namespace

bool Phyllotaxis::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setBool(numberFractional, true);
  params.setCurve(nodeGrowth, CurveParam(0.0, 1.0, 1.0, 1.0, "id"));
  params.setBool(nodeGrowthCurved, false);
  params.setInt(reductionMode, 0);
  params.setDouble(reductionMinimum, 5.0);
  params.setDouble(reductionCompensation, 0.6);
  params.setDouble(number, 50.0);
  params.setCurve(scale, CurveParam(-1.0, 2.0, 1.0, 1.0, "id"));
  params.setBool(showSurface, false);
  params.setDouble(spacingByScale, 1.0);
  params.setCurve(divergence, CurveParam(-10.0, 10.0, kGoldenDivergence, kGoldenDivergence, "id"));
  params.setBool(followPath, true);
  params.setCurve(tilt, CurveParam(0.0, kPi, 0.0, kPi, "id"));
  return true;
}

std::string& Phyllotaxis::typeName(std::string& out) { return out = "Phyllotaxis"; }

bool Phyllotaxis::hasGeometry(ParameterSet& params) {
  return params.getSpline(pathSpline) != nullptr && params.getBool(showSurface);
}

bool Phyllotaxis::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  for (int i = 0; i < childCount; ++i)
    roles.push_back(i == 0 ? RolePath : i == 1 ? RoleNodes : RoleOther);
  return true;
}

int Phyllotaxis::evaluate(ParameterSet& params, OGeomStream&, int roleMask,
                          PlacementList& placements, double lod) {
  if (!(roleMask & RoleNodes)) return 0;
  PhyllotaxisInputs in;
  if (!readInputs(params, in)) return 0;
  Sequence seq = reduce(params, in, lod);
  if (!countElements(in, seq)) return 0;
  placements.push_back({RoleNodes, false, spreadElements(in, seq)});
  return RoleNodes;
}

bool Phyllotaxis::placesOnly() { return true; }

}  // namespace mv
