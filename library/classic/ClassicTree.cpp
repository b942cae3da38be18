#include "classic/ClassicTree.h"

#include <algorithm>
#include <cmath>

#include "classic/ClassicRoles.h"
#include "classic/ClassicSweep.h"
#include "classic/ClassicTropism.h"
#include "classic/FramePhotoTurn.h"
#include "classic/PhotoTurn.h"
#include "classic/TreePrune.h"
#include "classic/detail/ClassicUnit.h"
#include "classic/detail/CountLimit.h"
#include "classic/detail/TreeTrunk.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

// The constant screw of the paired arrangements: half a turn at every knot.
const CurveParam& halfTurnScrew() {
  static const CurveParam curve(0.0, kTwoPi, kPi, kPi, "id");
  return curve;
}

double flapBaseOf(int pairs, int version) {
  if (version == 2) return 0.0;
  const bool sideways = pairs == 1 || pairs == 3 || pairs == 5;
  double flap = sideways ? -kHalfPi : kPi;
  if (version >= 3 && version <= 5) flap -= kPi;
  return flap;
}

// The parameters of one evaluation, and what follows from them.
struct TreeReading {
  double unit, segments, length, iniScale, branchNum, kruschtlKnots, photoStrength;
  int photoAxis, pairs, version;
  bool top;
  CurveParam *displace, *shape, *deviate, *kruschtl, *branchiness, *screw, *angle, *dense, *scale,
      *geomScale, *phototropism, *gravitropism;
  double growth, thickness, density;
  Matrix4 world, local;

  explicit TreeReading(ParameterSet& p)
      : unit(usableUnit(p.getDouble(IdUnit))),
        segments(p.getDouble(IdTreeSegments)),
        length(p.getDouble(IdTreeLength)),
        iniScale(p.getDouble(IdTreeIniScale)),
        branchNum(p.getDouble(IdTreeBranchNum)),
        kruschtlKnots(p.getDouble(IdTreeKruschtlKnots)),
        photoStrength(p.getDouble(IdPhotoStrength)),
        photoAxis(p.getInt(IdPhotoAxis)),
        pairs(p.getInt(IdTreePairs)),
        version(p.getInt(IdTreeVersion)),
        top(p.getBool(IdTreeTop)),
        displace(p.getCurve(IdDisplace)),
        shape(p.getCurve(IdTreeShape)),
        deviate(p.getCurve(IdTreeDeviate)),
        kruschtl(p.getCurve(IdTreeKruschtl)),
        branchiness(p.getCurve(IdTreeBranchiness)),
        screw(p.getCurve(IdTreeScrew)),
        angle(p.getCurve(IdTreeAngle)),
        dense(p.getCurve(IdTreeDense)),
        scale(p.getCurve(IdTreeScale)),
        geomScale(p.getCurve(IdTreeGeomScale)),
        phototropism(p.getCurve(IdTreePhototropism)),
        gravitropism(p.getCurve(IdTreeGravitropism)),
        growth(p.getDouble(IdCarriedGrowth) * iniScale),
        thickness(p.getDouble(IdCarriedThickness)),
        density(p.getDouble(IdCarriedDensity)),
        world(p.getMatrix(IdWorldMatrix)),
        local(p.getMatrix(IdLocalMatrix)) {}

  bool complete() const {
    for (const CurveParam* curve : {displace, shape, deviate, kruschtl, branchiness, screw, angle,
                                    dense, scale, geomScale, phototropism, gravitropism}) {
      if (!curve) return false;
    }
    return true;
  }
  const CurveParam& screwInUse() const {
    return pairs >= 2 && pairs <= 5 ? halfTurnScrew() : *screw;
  }
  // The carried values of a branch at trunk parameter u; dense is read at denseAt from
  // version 5 on.
  Placement branchValues(double u, double denseAt) const {
    Placement p;
    p.wantsData = true;
    p.carriedGrowth = std::clamp(scale->evaluate(u), 0.0, 1.0) * growth;
    const double de = std::clamp(dense->evaluate(version > 4 ? denseAt : u), 0.05, 1.0);
    p.carriedDensity = version < 4 ? de * density : de;
    p.carriedThickness = std::clamp(shape->evaluate(u) * thickness, 0.0, 1.0);
    return p;
  }
};

std::vector<TreeFrame> trunkFrames(const TreeReading& r, const ClassicSpline& path,
                                   std::vector<TreeSample>& samples) {
  TreeTrunk::Settings settings;
  settings.path = &path;
  settings.length = r.length;
  settings.segments = r.segments;
  settings.kruschtlKnots = r.kruschtlKnots;
  settings.deviate = r.deviate;
  settings.kruschtl = r.kruschtl;
  settings.screw = &r.screwInUse();
  settings.version = r.version;
  settings.density = r.density;
  const TreeTrunk trunk(
      settings, TreeTrunk::branchPositions(*r.branchiness, r.branchNum, r.version, r.density));
  samples = trunk.samples();
  return trunk.buildFrames();
}

// Each frame leans toward the light by its parameter; the frame's own matrix does not enter.
void correctPhoto(const TreeReading& r, std::vector<TreeFrame>& frames) {
  const Matrix4 sceneFrame = (r.world * r.local.inverse()).inverse();
  const Matrix4 localInverse = r.local.inverse();
  for (TreeFrame& frame : frames) {
    const Matrix4 turn = framePhotoTurn(sceneFrame, r.photoAxis, r.photoStrength, frame.x);
    frame.matrix = inUnit(frame.matrix * localInverse * turn * r.local, r.unit);
  }
}

// One placement per knot below the growth (two with the paired arrangements), turned about the
// trunk by the accumulated screw and tilted by the angle.
PlacementGroup knotPlacements(const TreeReading& r, const std::vector<TreeFrame>& frames,
                              const std::vector<TreeSample>& samples) {
  PlacementGroup group;
  group.role = RoleNodes;
  const double flapBase = flapBaseOf(r.pairs, r.version);
  const int count = limitedCount(r.branchNum, TreeTrunk::kMaxKnots, "Branch count");
  double acc = kPi;
  int index = 0;
  for (size_t i = 1; i + 1 < frames.size(); ++i) {
    if (!samples[i].knot) continue;
    const double x = frames[i].x;
    if (r.growth <= x) break;
    const double u = x / r.growth;
    Matrix4 m = frames[i].matrix;
    const double g = r.geomScale->evaluate(u);
    m.scale({g, g, g});
    acc += r.screwInUse().evaluate(u);
    m.rotateZ(r.version < 6 ? kPi - acc : -acc);
    Matrix4 pair = m;
    m.rotateX(-r.angle->evaluate(x)).rotateZ(flapBase);
    Placement p = r.branchValues(u, x);
    p.position = x;
    p.count = count;
    p.matrix = m;
    p.index = index++;
    group.placements.push_back(p);
    if (r.pairs <= 3) continue;
    p.matrix = pair.rotateX(r.angle->evaluate(x)).rotateZ(flapBase);
    p.index = index++;
    group.placements.push_back(p);
  }
  return group;
}

// The frame where the growth ends: the last frame when fully grown, else the first that reaches
// the growth, blended back to it. index is where it was found.
TreeFrame frameAtGrowth(const std::vector<TreeFrame>& frames, double growth, size_t& index) {
  index = frames.size() - 1;
  if (growth >= 1.0) return frames.back();
  for (size_t i = 1; i < frames.size(); ++i) {
    const double x = frames[i].x;
    if (x < growth) continue;
    index = i;
    if (x == growth) return frames[i];
    const TreeFrame& before = frames[i - 1];
    return {growth,
            blendMatrices(before.matrix, frames[i].matrix, (growth - before.x) / (x - before.x))};
  }
  return frames.back();
}

PlacementGroup topPlacement(const TreeReading& r, const std::vector<TreeFrame>& frames,
                            const std::vector<TreeSample>& samples) {
  size_t index = 0;
  const TreeFrame top = frameAtGrowth(frames, r.growth, index);
  double knotU = top.x;
  for (size_t i = index; i < samples.size(); ++i) {
    if (samples[i].knot) {
      knotU = samples[i].u;
      break;
    }
  }
  PlacementGroup group;
  group.role = RoleEnd;
  Placement p = r.branchValues(top.x / r.growth, knotU);
  p.matrix = top.matrix;
  p.position = top.x;
  group.placements.push_back(p);
  return group;
}

}  // namespace

bool ClassicTree::initParameters(ParameterSet& params, double size) {
  ClassicSimple::initParameters(params, size);
  params.setDouble(IdTreeSegments, 19.0);
  params.setDouble(IdTreeLength, 1.0);
  params.setDouble(IdTreeIniScale, 1.0);
  params.setBool(IdTreeTop, true);
  params.setDouble(IdTreeBranchNum, 10.0);
  params.setCurve(IdTreeShape, CurveParam(0.0, 1.0, 0.8, 0.6, 0.0, PointSmooth));
  params.setCurve(IdTreeDeviate, CurveParam(0.0, 1.0, 0.0, 0.0, 0.0, PointSmooth));
  params.setDouble(IdTreeKruschtlKnots, 2.0);
  params.setCurve(IdTreeKruschtl, CurveParam(0.0, 1.0, 0.0, 0.0, 0.0, PointSmooth));
  params.setCurve(IdTreeBranchiness, CurveParam(0.0, 1.0, 0.0, 0.2, 0.1, PointSmooth));
  params.setCurve(IdTreeScrew, CurveParam(0.0, kPi, 3.8832221, 3.8832221, "id"));
  params.setCurve(IdTreeAngle, CurveParam(0.0, 1.0, 0.4, 0.4, 0.4, PointSmooth));
  params.setCurve(IdTreeDense, CurveParam(0.0, 1.0, 0.5, 0.5, 0.1, PointSmooth));
  params.setCurve(IdTreeScale, CurveParam(0.0, 1.0, 0.8, 0.8, 0.3, PointSmooth));
  params.setCurve(IdTreeGeomScale, CurveParam(0.0, 2.0, 1.0, 1.0, 1.0, PointSmooth));
  params.setInt(IdTreePairs, 0);
  params.setCurve(IdTreePhototropism, CurveParam(0.0, 1.0, 0.0, 0.0, 0.0, PointSmooth));
  params.setCurve(IdTreeGravitropism, CurveParam(0.0, 1.0, 0.0, 0.0, 0.0, PointSmooth));
  params.setInt(IdTreeVersion, 6);
  return true;
}

std::string& ClassicTree::typeName(std::string& out) { return out = "ClassicTree"; }

bool ClassicTree::hasGeometry(ParameterSet&) { return true; }

bool ClassicTree::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  assignLeadingRoles(roles, childCount, {RoleProfile, RoleNodes, RoleEnd});
  return true;
}

int ClassicTree::evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                          PlacementList& placements, double) {
  const TreeReading r(params);
  if (!r.complete() || !(r.growth >= kZeroTolerance)) return 0;
  std::vector<TreeSample> samples;
  std::vector<TreeFrame> frames = trunkFrames(r, path, samples);
  if (frames.empty()) return 0;
  if (r.version < 6) {
    const Matrix4 flip = Matrix4::scaling({-1.0, -1.0, 1.0});
    for (TreeFrame& frame : frames) frame.matrix = frame.matrix * flip;
  }
  applyTropism(*r.phototropism, *r.gravitropism, frames, r.world.inverse(), r.growth, 1.0);
  correctPhoto(r, frames);
  pruneFrames(params.getNode(IdClipNode), r.world, frames);
  writeProfileSweep(params, stream, frames, *r.shape, r.unit, r.growth, r.thickness, r.top,
                    *r.displace);
  int placed = 0;
  if (roleMask & RoleNodes) {
    placements.push_back(knotPlacements(r, frames, samples));
    placed |= RoleNodes;
  }
  if (roleMask & RoleEnd) {
    placements.push_back(topPlacement(r, frames, samples));
    placed |= RoleEnd;
  }
  if (roleMask & RoleOther) {
    placements.push_back(PlacementGroup{RoleOther, false, {Placement()}});
    placed |= RoleOther;
  }
  return placed;
}

}  // namespace mv
