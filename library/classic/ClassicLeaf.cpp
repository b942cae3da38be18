#include "classic/ClassicLeaf.h"

#include "classic/ClassicRoles.h"
#include "classic/ClassicSweep.h"
#include "classic/ClassicTropism.h"
#include "classic/PhotoTurn.h"
#include "classic/detail/ClassicUnit.h"
#include "classic/detail/HornReading.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

bool ClassicLeaf::initParameters(ParameterSet& params, double size) {
  ClassicHorn::initParameters(params, size);
  params.setCurve(IdLeafPhototropism, CurveParam(0.0, 1.0, 0.0, 0.0, "id"));
  params.setCurve(IdLeafGravitropism, CurveParam(0.0, 1.0, 0.0, 0.0, "id"));
  return true;
}

std::string& ClassicLeaf::typeName(std::string& out) { return out = "ClassicLeaf"; }

bool ClassicLeaf::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleProfile, RoleEnd});
  return true;
}

int ClassicLeaf::evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                          PlacementList& placements, double) {
  const HornReading r(params);
  if (!r.complete()) return 0;
  std::vector<TreeFrame> frames = buildHornFrames(r.chain(), r.segments, r.length, r.moveScale);
  const CurveParam* phototropism = params.getCurve(IdLeafPhototropism);
  const CurveParam* gravitropism = params.getCurve(IdLeafGravitropism);
  if (!phototropism || !gravitropism) return 0;
  applyTropism(*phototropism, *gravitropism, frames, r.world.inverse(), 1.0, kTropismMultiplier);
  const Matrix4 turn =
      photoTurn((r.world * r.local.inverse()).inverse(), r.photoAxis, r.photoStrength, r.photoMode);
  for (TreeFrame& frame : frames) frame.matrix = inUnit(frame.matrix * turn, r.unit);
  writeProfileSweep(params, stream, frames, *r.shape, 1.0, 1.0, 1.0, true, *r.displace);
  int placed = 0;
  if (roleMask & RoleEnd && !frames.empty()) {
    placements.push_back(topPlacement(params, frames));
    placed |= RoleEnd;
  }
  if (roleMask & RoleOther) {
    placements.push_back(otherPlacement(turn));
    placed |= RoleOther;
  }
  return placed;
}

}  // namespace mv
