#include "classic/ClassicArrangement.h"

#include "core/ChildRole.h"
#include "core/ParameterSet.h"

namespace mv {

Placement carryingPlacement(ParameterSet& params, const Matrix4& matrix, double position, int index,
                            int count) {
  Placement p;
  p.matrix = matrix;
  p.wantsData = true;
  p.position = position;
  p.index = index;
  p.count = count;
  p.carriedThickness = params.getDouble(IdCarriedThickness);
  p.carriedGrowth = params.getDouble(IdCarriedGrowth);
  p.carriedDensity = params.getDouble(IdCarriedDensity);
  return p;
}

int placeOtherChildren(int roleMask, PlacementList& placements) {
  if (!(roleMask & RoleOther)) return 0;
  placements.push_back(PlacementGroup{RoleOther, false, {Placement()}});
  return RoleOther;
}

}  // namespace mv
