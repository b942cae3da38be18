#include "classic/ClassicPhiball.h"

#include <algorithm>
#include <cmath>

#include "classic/ClassicArrangement.h"
#include "classic/ClassicRoles.h"
#include "classic/detail/CountLimit.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

constexpr double kGoldenAngle = 3.8832221;

// An element's parameter along the sequence; a single element reads its curves at 0, and the
// extra element of a fractional number lies above 1, where the curves clamp.
double sequenceParameter(int i, int n) {
  if (n < 2) return i == 0 ? 0.0 : 1.0;
  return static_cast<double>(i) / (n - 1);
}

// The extra element of a fractional number can push the argument out of the domain.
double rowTheta(double argument) { return std::asin(std::clamp(argument, -1.0, 1.0)) + kHalfPi; }

}  // namespace

struct ClassicPhiball::Walk {
  ParameterSet& params;
  const CurveParam& angle;
  const CurveParam& scale;
  const CurveParam& trans;
  double number, influence, unit;
  int n;
  int roleMask;
  double cosLo = 0.0, span = 0.0, extent = 1.0, base = 0.0, radius = 0.0, phi = 0.0;
  PlacementGroup group{RoleNodes, false, {}};

  void place(double theta, int i, double u, double s) {
    const double r = radius / extent;
    Matrix4 m = Matrix4::translation({0.0, 0.0, base * r + trans.evaluate(u) * unit});
    m.rotateZ(-phi).rotateX(-theta).translate({0.0, 0.0, r}).scale({s, s, s});
    group.placements.push_back(carryingPlacement(params, m, u, i, n));
  }
};

bool ClassicPhiball::initParameters(ParameterSet& params, double size) {
  ClassicSimple::initParameters(params, size);
  params.setDouble(IdPhiballNumber, 50.0);
  params.setDouble(IdPhiballRadius, size * 0.5);
  params.setDouble(IdPhiballInfluence, 1.0);
  params.setCurve(IdPhiballAngle, CurveParam(0.0, kPi, kGoldenAngle, kGoldenAngle, "id"));
  params.setCurve(IdPhiballFan, CurveParam(-kPi, kPi, -kPi, kPi, "id"));
  params.setCurve(IdPhiballScale, CurveParam(0.0, 2.0, 1.0, 1.0, "id"));
  params.setCurve(IdPhiballTrans, CurveParam(0.0, 1.0, 0.0, 0.0, "id"));
  return true;
}

std::string& ClassicPhiball::typeName(std::string& out) { return out = "ClassicPhiball"; }

bool ClassicPhiball::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleNodes});
  return true;
}

int ClassicPhiball::evaluate(ParameterSet& params, OGeomStream&, int roleMask,
                             PlacementList& placements, double) {
  const CurveParam* fan = params.getCurve(IdPhiballFan);
  const CurveParam* scale = params.getCurve(IdPhiballScale);
  const CurveParam* angle = params.getCurve(IdPhiballAngle);
  const CurveParam* trans = params.getCurve(IdPhiballTrans);
  const double number = params.getDouble(IdPhiballNumber);
  if (!fan || !scale || !angle || !trans || !(number >= 1.0)) return 0;
  const double unit = params.getDouble(IdUnit);
  Walk walk{params,  *angle,
            *scale,  *trans,
            number,  params.getDouble(IdPhiballInfluence),
            unit,    limitedCount(number, kMaxElements, "Phiball number"),
            roleMask};
  const double lo = std::min(fan->evaluate(0.0), fan->evaluate(1.0));
  const double hi = std::max(fan->evaluate(0.0), fan->evaluate(1.0));
  walk.cosLo = std::cos(lo);
  walk.span = std::abs(std::cos(hi) - walk.cosLo);
  const double s0 = std::sin(lo - kHalfPi), s1 = std::sin(hi - kHalfPi);
  if ((s0 <= 0.0 && s1 >= 0.0) || (s0 >= 0.0 && s1 <= 0.0)) {
    walk.extent = 1.0;
    walk.base = 0.0;
  } else {
    const double c0 = std::abs(std::cos(lo - kHalfPi)), c1 = std::abs(std::cos(hi - kHalfPi));
    walk.extent = c0 > c1 ? c0 : c1;
    walk.base = c0 > c1 ? s0 : s1;
  }
  walk.radius = params.getDouble(IdPhiballRadius) * unit;
  if (walk.influence == 0.0 || walk.n < 2 || !rowsByInfluence(walk)) evenRows(walk);
  placements.push_back(std::move(walk.group));
  return RoleNodes | placeOtherChildren(roleMask, placements);
}

// Even steps of the argument give rows of equal area from hi down to lo.
void ClassicPhiball::evenRows(Walk& walk) {
  const double denom = std::max(walk.number, 1.05);
  for (int i = 0; i < walk.number && i <= walk.n; ++i) {
    const double theta = rowTheta((denom - i - 1) / (denom - 1) * walk.span - walk.cosLo);
    const double u = sequenceParameter(i, walk.n);
    walk.place(theta, i, u, walk.scale.evaluate(u));
    walk.phi += walk.angle.evaluate(u);
  }
}

// Each element takes a share of the band by the square of its scale; the shares are taken at
// i / n, the walk reads at i / (n - 1).
bool ClassicPhiball::rowsByInfluence(Walk& walk) {
  const int n = walk.n;
  double peak = 0.0;
  for (int i = 0; i + 1 < n; ++i)
    peak = std::max(peak, std::pow(walk.scale.evaluate(1.0 * i / n), 2));
  if (!(peak > 0.0)) return false;
  const double k = walk.influence;
  auto share = [&](double v) { return k * k * v * v / peak + (1.0 - k); };
  double total = 0.0;
  for (int i = 0; i + 1 < n; ++i) total += share(std::abs(walk.scale.evaluate(1.0 * i / n)));
  if (!(total > 0.0) || !std::isfinite(total)) return false;
  double left = total;
  for (int i = 0; i < n; ++i) {
    const double u = sequenceParameter(i, n);
    const double theta = rowTheta(left / total * walk.span - walk.cosLo);
    const double v = walk.scale.evaluate(u);
    if (std::abs(v) > kZeroTolerance) walk.place(theta, i, u, v);
    left = std::max(0.0, left - share(std::abs(v)));
    walk.phi += walk.angle.evaluate(u);
  }
  messageSink.debug("nActualElements: " + std::to_string(n) + " " + std::to_string(walk.roleMask) +
                    " - standard.links.size():" + std::to_string(walk.group.placements.size()));
  return true;
}

}  // namespace mv
