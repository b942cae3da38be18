#include "classic/ClassicHorn.h"

#include <cmath>

#include "classic/ClassicRoles.h"
#include "classic/ClassicSweep.h"
#include "classic/PhotoTurn.h"
#include "classic/detail/ClassicUnit.h"
#include "classic/detail/CountLimit.h"
#include "classic/detail/HornReading.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

// Frames that keep their axes, at even parameters along the path; the last lies before its end.
std::vector<TreeFrame> pathFrames(const ClassicSpline& path, double segments) {
  std::vector<TreeFrame> frames;
  const int count = limitedCount(std::ceil(segments), ClassicHorn::kMaxSegments, "Horn segments");
  frames.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    const double x = i / segments;
    frames.push_back({x, Matrix4::translation(path.pointAt(x))});
  }
  return frames;
}

// A placement that hands the node's own carried values on.
Placement withOwnValues(ParameterSet& params) {
  Placement p;
  p.wantsData = true;
  p.carriedGrowth = params.getDouble(IdCarriedGrowth);
  p.carriedThickness = params.getDouble(IdCarriedThickness);
  p.carriedDensity = params.getDouble(IdCarriedDensity);
  return p;
}

// The standard elements every steps(x) frames; the first frame counts but is never placed, and
// the last is not visited.
PlacementGroup standardElements(ParameterSet& params, const HornReading& r, const CurveParam& steps,
                                const std::vector<TreeFrame>& turned) {
  PlacementGroup group;
  group.role = RoleNodes;
  const int count = static_cast<int>(turned.size()) - 2;
  int c = 0;
  for (size_t i = 0; i + 1 < turned.size(); ++i) {
    const double x = turned[i].x;
    if (steps.evaluate(x) > ++c) continue;
    c = 0;
    Matrix4 n = turned[i].matrix;
    n.rotateX(-kHalfPi).rotateZ(-r.flap->evaluate(x));
    const double s = r.scale->evaluate(x);
    n.scale({s, s, s});
    if (i == 0) continue;
    Placement p = withOwnValues(params);
    p.matrix = n;
    p.position = x;
    p.index = static_cast<int>(i) - 1;
    p.count = count;
    group.placements.push_back(p);
  }
  return group;
}

}  // namespace

std::vector<TreeFrame> ClassicHorn::buildHornFrames(const ChainCurves& curves, double segments,
                                                    double length, double moveScale) {
  if (!(segments >= 0.0)) return {};
  const int n = limitedCount(segments, kMaxSegments, "Horn segments");
  const double step = length / segments;
  std::vector<TreeFrame> frames;
  frames.reserve(static_cast<size_t>(n) + 1);
  Matrix4 m;
  double p = 0.0;
  for (int i = 0; i <= n; ++i) {
    const double u = n > 0 ? static_cast<double>(i) / n : 0.0;
    if (i > 0) {
      m.rotateX(-curves.rotX->evaluate(p) * step);
      m = Matrix4::rotationY(curves.rotY->evaluate(p) * step) * m;
      m.rotateZ(-curves.rotZ->evaluate(p) * step);
      const double sideX = curves.trX->evaluate(p) * step;
      const double sideY = curves.trY->evaluate(p) * step;
      const double forward = curves.dense->evaluate(p) * step * moveScale;
      m.setRow(3, m.row(3) + m.row(0) * sideX + m.row(1) * sideY + m.row(2) * forward);
    }
    frames.push_back({u, m});
    p = u;
  }
  return frames;
}

bool ClassicHorn::initParameters(ParameterSet& params, double size) {
  ClassicSimple::initParameters(params, size);
  params.setBool(IdHornSmooth, true);
  params.setCurve(IdHornSteps, CurveParam(1.0, 200.0, 1.0, 1.0, "id"));
  return true;
}

std::string& ClassicHorn::typeName(std::string& out) { return out = "ClassicHorn"; }

bool ClassicHorn::hasGeometry(ParameterSet&) { return true; }

bool ClassicHorn::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleProfile, RoleNodes, RoleEnd});
  return true;
}

int ClassicHorn::evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                          PlacementList& placements, double) {
  const HornReading r(params);
  CurveParam* steps = params.getCurve(IdHornSteps);
  if (!r.complete() || !steps) return 0;
  std::vector<TreeFrame> frames =
      path.keys.empty() ? buildHornFrames(r.chain(), r.segments, r.length, r.moveScale)
                        : pathFrames(path, r.segments);
  const Matrix4 turn =
      photoTurn(r.world.inverse() * r.local, r.photoAxis, r.photoStrength, r.photoMode);
  const Matrix4 correction = r.local.inverse() * turn * r.local;
  for (TreeFrame& frame : frames) frame.matrix = inUnit(frame.matrix * correction, r.unit);
  std::vector<TreeFrame> turned = frames;
  for (TreeFrame& frame : turned) frame.matrix.rotateZ(-r.screw->evaluate(frame.x));
  writeProfileSweep(params, stream, turned, *r.shape, r.unit, 1.0, 1.0, r.top, *r.displace);
  placements.push_back(standardElements(params, r, *steps, turned));
  int placed = roleMask & RoleNodes;
  if (roleMask & RoleEnd && !frames.empty()) {
    placements.push_back(topPlacement(params, frames));
    placed |= RoleEnd;
  }
  if (roleMask & RoleOther) {
    placements.push_back(otherPlacement(correction));
    placed |= RoleOther;
  }
  return placed;
}

PlacementGroup ClassicHorn::topPlacement(ParameterSet& params,
                                         const std::vector<TreeFrame>& frames) {
  Placement p = withOwnValues(params);
  p.matrix = frames.back().matrix;
  p.position = frames.back().x;
  return PlacementGroup{RoleEnd, false, {p}};
}

PlacementGroup ClassicHorn::otherPlacement(const Matrix4& matrix) {
  Placement p;
  p.matrix = matrix;
  return PlacementGroup{RoleOther, false, {p}};
}

}  // namespace mv
