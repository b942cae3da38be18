// runNode: evaluates one node without a host, in the order a driver keeps: assignRoles for
// childCount children, a roleMask of every role they got, then one evaluate into a polygon
// stream over mesh. The stream is flushed and mesh finished before the call returns. The
// parameters must already hold what the roles require (profile and path under 1006 and 1007).
#pragma once

#include "core/ParameterSet.h"
#include "core/PlacementGroup.h"
#include "core/Simple.h"
#include "geometry/OMesh.h"

namespace mv {

// Returns the mask of roles that evaluate placed; placements are appended.
int runNode(Simple& node, ParameterSet& params, int childCount, OMesh& mesh,
            PlacementList& placements, double lod = 1.0);

}  // namespace mv
