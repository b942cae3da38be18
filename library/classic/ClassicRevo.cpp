#include "classic/ClassicRevo.h"

#include <map>

#include "classic/ClassicArrangement.h"
#include "classic/ClassicRoles.h"
#include "classic/ClassicSweep.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

std::string& ClassicRevo::typeName(std::string& out) { return out = "ClassicRevo"; }

bool ClassicRevo::hasGeometry(ParameterSet&) { return true; }

bool ClassicRevo::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleProfile});
  return true;
}

// The radii become a curve over the stack, through each (x, radius); the sweep clamps it to
// 0 to 1, so that a radius of 1 is the profile's own size.
int ClassicRevo::evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                          PlacementList& placements, double) {
  const CurveParam* displace = params.getCurve(IdDisplace);
  if (!displace) return 0;
  std::vector<TreeFrame> frames;
  std::map<double, double> radii;
  double low = 1e38, high = -1e38;
  const size_t n = points.size();
  for (size_t i = 0; i < n; ++i) {
    const double x = n > 1 ? static_cast<double>(i) / (n - 1) : 0.0;
    frames.push_back({x, Matrix4::translation({0.0, 0.0, points[i].z})});
    radii[x] = points[i].x;
    low = std::min(low, points[i].x);
    high = std::max(high, points[i].x);
  }
  const CurveParam shape(low, high, radii, false);
  writeProfileSweep(params, stream, frames, shape, 1.0, 1.0, 1.0, false, *displace);
  return placeOtherChildren(roleMask, placements);
}

}  // namespace mv
