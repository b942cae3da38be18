// Phyllotaxis: spreads copies of one child over a surface of revolution, the way seeds sit on
// a flower head. The surface is the profile spline (its first child, parameter 1007) turned
// about the z axis; the elements (its second child) follow each other along the profile so that
// each takes its share of the area, and each next one turns by the divergence angle about the
// axis. It writes no geometry: its whole product is one group of placements of role 4.
//
// All curves are read over the element sequence (0 for the first element, 1 for the last), the
// profile only at the elements' places. A fractional number shows as a last element that
// shrinks, and the level of detail can thin the elements out (reductionMode 1).
#pragma once

#include <string>
#include <vector>

#include "core/ParameterSet.h"
#include "core/Simple.h"

namespace mv {

class Phyllotaxis : public virtual Simple {
 public:
  // Parameter ids; the names are those of the host's description.
  enum ParameterId : int {
    pathSpline = IdPathNode,
    numberFractional = 1105,
    nodeGrowth = 1303,
    nodeGrowthCurved = 1323,
    reductionMode = 1401,
    reductionMinimum = 1406,
    reductionCompensation = 1407,
    number = 1500,
    scale = 1503,
    showSurface = 1504,
    spacingByScale = 1505,
    divergence = 1506,
    followPath = 1507,
    tilt = 1508,
  };

  // 2 pi times the golden section: the default divergence.
  static constexpr double kGoldenDivergence = 3.8832221;
  // More elements than this are refused: the placements would exhaust memory.
  static constexpr double kMaxElements = 250000.0;

  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  // The profile is present and showSurface is set; no surface is written all the same.
  bool hasGeometry(ParameterSet& params) override;
  // Profile, elements, then 16 for every further child.
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // One group of role 4 with the elements; 0 without role 4 in roleMask or when a parameter is
  // missing. lod thins the elements out under reductionMode 1.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  // True: the node only places.
  virtual bool placesOnly();
};

}  // namespace mv
