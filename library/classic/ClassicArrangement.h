// ClassicArrangement: the pieces that the classic arrangers (hydra, wreath, phiball) share: an
// element placement that carries the node's own values, and the single placement of the further
// children.
#pragma once

#include "core/PlacementGroup.h"

namespace mv {

class ParameterSet;

// A placement at matrix that hands the node's carried values (6003, 6000, 6004) to the element.
Placement carryingPlacement(ParameterSet& params, const Matrix4& matrix, double position, int index,
                            int count);

// When roleMask holds role 16: one group of role 16 with a default placement; returns 16, else 0.
int placeOtherChildren(int roleMask, PlacementList& placements);

}  // namespace mv
