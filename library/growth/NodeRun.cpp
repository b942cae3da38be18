#include "growth/NodeRun.h"

#include <vector>

#include "geometry/OPolygonStream.h"

namespace mv {

int runNode(Simple& node, ParameterSet& params, int childCount, OMesh& mesh,
            PlacementList& placements, double lod) {
  std::vector<int> roles;
  node.assignRoles(params, roles, childCount);
  int placed = 0;
  {
    OPolygonStream stream(&mesh, true);
    placed = node.evaluate(params, stream, roleMaskOf(roles), placements, lod);
  }  // the stream writes its last primitive as it goes
  mesh.finish();
  return placed;
}

}  // namespace mv
