// Branch: the node that turns a path into a stem. It sweeps a profile along the path to a tube
// and places children along it: a ring at every path point (role 1), nodes spread by a density
// curve and turned by angle, flap and screw (role 4), and one element at the end (role 8).
//
// Everything comes from the parameters of the call: the path (1007) and profile (1006) splines,
// eight curves over the path, and growth, thickness and density inherited from the placement
// that created the branch (6000, 6003, 6004). Curves are read in a fixed order, since an
// expression may draw on the shared random generator. Curve coordinates run 0 to 1 along one
// segment of the path, whose parameter t is taken to run 0 to 1 as well.
//
// A missing parameter reports "Parameter Retrieval failed!" with a tag naming it, and the result
// is 0; groups written before the failure stay in the list.
#pragma once

#include <string>
#include <vector>

#include "core/ParameterSet.h"
#include "core/Simple.h"

namespace mv {

class Branch : public virtual Simple {
 public:
  // Parameter ids; the names are those of the host's description.
  enum ParameterId : int {
    worldMatrix = IdWorldMatrix,
    profileSpline = IdProfileNode,
    pathSpline = IdPathNode,
    pathGrowth = 1103,
    thickness = 1104,
    pathGrowthInherited = 1106,
    thicknessInherited = 1114,
    clipObject = IdClipNode,
    curveMapping = 1121,
    capStart = 1130,
    capEnd = 1131,
    nodeThicknessCurved = 1134,
    nodeNumber = 1301,
    nodeNumberInherited = 1302,
    nodeGrowth = 1303,
    nodeAngle = 1304,
    nodeFlap = 1305,
    nodeDistribution = 1306,
    nodeScale = 1307,
    nodeWhorl = 1308,
    nodeScrew = 1309,
    nodeDensity = 1310,
    nodeMode = 1311,
    nodeGrowthCurved = 1323,
    nodeDensityCurved = 1330,
    nodeArrangement = 1349,
  };

  // Screw of the default arrangement: 2 pi times the golden section, taken the other way round.
  static constexpr double kGoldenScrew = 3.883221519818898;
  // More nodes than this in one evaluation are refused: the placements would exhaust memory.
  static constexpr double kMaxNodeNumber = 250000.0;

  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  // Both the profile and the path spline are present.
  bool hasGeometry(ParameterSet& params) override;
  // Profile, path, nodes, end, then 16 for every further child.
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // computePlacements, then writeTube when hasGeometry holds; the result of computePlacements.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  // Forwards to computePlacements.
  virtual int placeChildren(ParameterSet& params, int roleMask, PlacementList& placements,
                            double lod);
  // Appends the groups of the roles in roleMask, segment by segment; returns their roles.
  virtual int computePlacements(ParameterSet& params, int roleMask, PlacementList& placements,
                                double lod);
  // Sweeps every profile segment along every role-1 group of placements: one patch each, with
  // caps "C1" and "C2" where asked for. False without a profile.
  virtual bool writeTube(ParameterSet& params, OGeomStream& stream, PlacementList& placements);

  // The host's node arrangement presets 1 to 6: constant flap and screw curves, whorl 1 and a
  // mode. Another value changes nothing and gives false.
  static bool applyNodeArrangement(ParameterSet& params, int arrangement);
};

}  // namespace mv
