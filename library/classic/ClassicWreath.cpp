#include "classic/ClassicWreath.h"

#include "classic/ClassicArrangement.h"
#include "classic/ClassicRoles.h"
#include "classic/detail/CountLimit.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"

namespace mv {

namespace {}  // namespace

bool ClassicWreath::initParameters(ParameterSet& params, double size) {
  ClassicSimple::initParameters(params, size);
  params.setDouble(IdWreathNumber, 8.0);
  params.setDouble(IdWreathRadius, size * 0.5);
  return true;
}

std::string& ClassicWreath::typeName(std::string& out) { return out = "ClassicWreath"; }

bool ClassicWreath::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleNodes});
  return true;
}

// The angles are spaced by number itself, so that a fractional number leaves a wider last gap.
int ClassicWreath::evaluate(ParameterSet& params, OGeomStream&, int roleMask,
                            PlacementList& placements, double) {
  const double number = params.getDouble(IdWreathNumber);
  const double radius = params.getDouble(IdWreathRadius);
  int placed = 0;
  if (roleMask & RoleNodes && number > kZeroTolerance) {
    const int n = limitedCount(number, kMaxElements, "Wreath number");
    PlacementGroup group{RoleNodes, false, {}};
    group.placements.reserve(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
      Matrix4 m;
      m.rotateZ(-kTwoPi * i / number).translate({0.0, radius, 0.0});
      group.placements.push_back(carryingPlacement(params, m, i / number, i, n));
    }
    placements.push_back(std::move(group));
    placed = RoleNodes;
  }
  return placed | placeOtherChildren(roleMask, placements);
}

}  // namespace mv
