#include "classic/ClassicHydra.h"

#include <cmath>

#include "classic/ClassicArrangement.h"
#include "classic/ClassicRoles.h"
#include "classic/detail/CountLimit.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {}  // namespace

bool ClassicHydra::initParameters(ParameterSet& params, double size) {
  ClassicSimple::initParameters(params, size);
  params.setDouble(IdHydraNumber, 8.0);
  params.setCurve(IdHydraSpin, CurveParam(-kPi, kPi, 0.0, 0.0, "id"));
  params.setCurve(IdHydraTwist, CurveParam(-kPi, kPi, 0.0, 0.0, "id"));
  params.setCurve(IdHydraFan, CurveParam(-kPi, kPi, -kPi, kPi, "id"));
  params.setCurve(IdHydraScale, CurveParam(0.0, 2.0, 1.0, 1.0, "id"));
  return true;
}

std::string& ClassicHydra::typeName(std::string& out) { return out = "ClassicHydra"; }

bool ClassicHydra::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleNodes});
  return true;
}

// fan is read at i / n so that a full circle does not close on itself; the others at
// i / (n - 1) so that they reach their last value.
int ClassicHydra::evaluate(ParameterSet& params, OGeomStream&, int roleMask,
                           PlacementList& placements, double) {
  const CurveParam* spin = params.getCurve(IdHydraSpin);
  const CurveParam* twist = params.getCurve(IdHydraTwist);
  const CurveParam* fan = params.getCurve(IdHydraFan);
  const CurveParam* scale = params.getCurve(IdHydraScale);
  if (!spin || !twist || !fan || !scale) return 0;
  const double number = params.getDouble(IdHydraNumber);
  int placed = 0;
  if (roleMask & RoleNodes && number > kZeroTolerance) {
    const int n = limitedCount(number, kMaxElements, "Hydra number");
    PlacementGroup group{RoleNodes, false, {}};
    group.placements.reserve(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
      const double a = static_cast<double>(i) / n;
      const double b = n < 2 ? 0.0 : static_cast<double>(i) / (n - 1);
      const double s = scale->evaluate(b);
      Matrix4 m;
      m.rotateZ(-twist->evaluate(b)).rotateX(-fan->evaluate(a)).rotateZ(-spin->evaluate(b));
      m.scale({s, s, s});
      group.placements.push_back(carryingPlacement(params, m, i / number, i, n));
    }
    placements.push_back(std::move(group));
    placed = RoleNodes;
  }
  return placed | placeOtherChildren(roleMask, placements);
}

}  // namespace mv
