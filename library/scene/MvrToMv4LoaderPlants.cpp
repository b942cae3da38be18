// The conversions of the classic plant parts: horn, leaf and tree.
#include <algorithm>
#include <cmath>
#include <map>

#include "classic/ClassicSpline.h"
#include "classic/detail/CountLimit.h"
#include "classic/detail/TreeTrunk.h"
#include "core/MathConstants.h"
#include "core/ParameterSet.h"
#include "scene/MvrConversionCurves.h"
#include "scene/MvrToMv4Loader.h"

namespace mv {

namespace {

constexpr double kGoldenScrew = 3.883221519818898;
constexpr double kLeafCurvLength = 0.05;
constexpr double kMinimumDense = 0.05;
constexpr double kTropismLimit = 5.0;

using Curves = MvrConversionCurves;

ClassicSpline splineOf(const MvrPath& path) {
  ClassicSpline spline;
  spline.keys = path;
  return spline;
}

// The curvature spline's turn curves scaled from the classic horn's per-segment turns, and its
// move curves from the classic units.
MvrCurvatureRecord curvatureOf(const MvrHornRecord& record, bool fractional, double curvLength) {
  const double segments = record.segments;
  const double turnFactor = (segments + 1) * 20 / segments;
  MvrCurvatureRecord curvature;
  curvature.curvSteps = segments;
  curvature.curvFractional = fractional;
  curvature.curvScaleZ = record.length * 20;
  curvature.curvLength = curvLength;
  curvature.curv_rota_x = record.rotX;
  curvature.curv_rota_y = record.rotY;
  curvature.curv_rota_z = record.rotZ;
  curvature.curv_tran_x = record.trX;
  curvature.curv_tran_y = record.trY;
  curvature.curv_tran_z = record.dense;
  for (CurveParam* turn : {&curvature.curv_rota_x, &curvature.curv_rota_y, &curvature.curv_rota_z})
    turn->multiply(turnFactor);
  for (CurveParam* move : {&curvature.curv_tran_x, &curvature.curv_tran_y, &curvature.curv_tran_z})
    move->multiply(record.unit);
  return curvature;
}

// pairs chooses the flap base, the screw and the arrangement; a version before 6 shifts them.
void treeArrangement(const MvrTreeRecord& tree, MvrBranchRecord& branch) {
  const int pairs = tree.pairs < 0 || tree.pairs > 5 ? 0 : tree.pairs;
  double flapBase = pairs % 2 == 1 ? kPi / 2 : kPi;
  branch.nodeScrew = pairs >= 2 ? CurveParam(0.0, 2 * kPi, kPi, kPi, "id") : tree.screw;
  branch.pairedNodes = pairs >= 4;
  branch.nodeArrangement = pairs + 1;
  if (tree.version >= 3 && tree.version <= 5) {
    flapBase -= kPi;
    branch.nodeArrangement = 0;
  } else if (tree.version == 2) {
    flapBase = 0.0;
    branch.nodeArrangement = 0;
  }
  branch.nodeFlap = CurveParam(-kPi, 2 * kPi, flapBase, flapBase, "id");
}

// One over the classic density at each clamp sample, limits around the values and 0 to 1.
CurveParam treeDensity(const CurveParam& dense, const std::vector<double>& positions) {
  std::map<double, double> values;
  double low = 0.0, high = 1.0;
  for (double u : Curves::samplePositions(positions)) {
    const double value = 1.0 / std::max(dense.evaluate(u), kMinimumDense);
    values[u] = value;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  return Curves::curveThrough(low - 0.1, high + 0.1, values, false);
}

// Older trees carry scale divided by density at each branch knot; newer ones the scale itself.
CurveParam treeGrowth(const MvrTreeRecord& tree, const std::vector<double>& positions,
                      const CurveParam& nodeDensity) {
  CurveParam growth = tree.scale;
  if (tree.version >= 4) {
    Curves::clampCurve(growth, positions, 0.0, 1.0);
    return growth;
  }
  std::map<double, double> values;
  for (double p : positions)
    values[p] = std::clamp(tree.scale.evaluate(p), 0.0, 1.0) / nodeDensity.evaluate(p);
  growth = Curves::curveThrough(0.0, 1.0, values, false);
  growth.setAllPointTypes(PointCorner);
  return growth;
}

// A version before 6 draws its trunk turned half about z.
Vector3 classicTurn(Vector3 point, int version) {
  if (version < 6) {
    point.x = -point.x;
    point.y = -point.y;
  }
  return point;
}

}  // namespace

std::vector<double> MvrToMv4Loader::leafPositions(const CurveParam& dense, double segments) {
  const int n = limitedCount(segments, kMaxPathPoints, "Leaf segments");
  std::vector<double> steps(static_cast<size_t>(n));
  double sum = 0.0;
  for (int i = 0; i < n; ++i) sum += steps[i] = dense.evaluate(i / segments);
  std::vector<double> positions{0.0};
  double running = 0.0;
  for (int i = 1; i < n; ++i) {
    running += steps[i - 1];
    // Without any density to spread by, the steps are even.
    positions.push_back(std::fabs(sum) > kZeroTolerance ? running / sum
                                                        : static_cast<double>(i) / n);
  }
  positions.push_back(1.0);
  return positions;
}

CurveParam MvrToMv4Loader::treeTropism(const std::vector<double>& sampleU,
                                       const std::vector<Vector3>& framePositions, double iniScale,
                                       const CurveParam& phototropism,
                                       const CurveParam& gravitropism) {
  std::map<double, double> steps;
  double px = 0.0, pv = 0.0;
  for (size_t i = 0; i < sampleU.size() && i < framePositions.size(); ++i) {
    const double x = sampleU[i];
    double v = 0.0;
    if (i >= 2) {
      // Samples that do not advance hold no step to bend over.
      if (!(x - px > kZeroTolerance)) continue;
      const double t = px / iniScale;
      const double a = std::clamp(phototropism.evaluate(t), 0.0, 1.0);
      const double b = std::clamp(gravitropism.evaluate(t), 0.0, 1.0);
      const double d = (framePositions[i - 1] - framePositions[i - 2]).length();
      v = 2 * ((a - b) * d) / (x - px) - pv;
    }
    steps[x] = v;
    px = x;
    pv = v;
    if (x > iniScale) break;
  }
  // Corner points on a default curve: its last point stays at 0 where the growth ends early.
  CurveParam strength;
  for (const auto& [x, v] : Curves::thinned(steps)) strength.addPoint(x, v, PointCorner);
  return strength;
}

std::string MvrToMv4Loader::createClassicHorn(const MvrHeader& header, const MvrHornRecord& horn) {
  MvrBranchRecord branch;
  branch.path = hornPath(header.name, horn);
  if (branch.path.empty()) return {};
  branch.profile = horn.primitive;
  branch.thickness = horn.shape;
  branch.nodeNumber = horn.segments - 1;
  branch.nodeAngle = Curves::quarterAngle();
  branch.nodeGrowth = Curves::fullGrowth();
  branch.nodeFlap = horn.flap;
  branch.nodeDistribution = Curves::halfDistribution();
  branch.nodeScale = horn.scale;
  branch.nodeScrew = Curves::zeroCurve();
  branch.nodeDensity = Curves::unitDensity();
  return createBranch(header, branch);
}

// A horn without a path walks a curvature spline; one with a path follows its knots or samples.
std::string MvrToMv4Loader::hornPath(const std::string& name, const MvrHornRecord& horn) {
  if (horn.path.empty()) {
    const double curvLength =
        horn.smooth ? horn.moveScale / 20 : horn.moveScale * (horn.segments / 20);
    return curvaturePath(name, horn, curvLength);
  }
  std::vector<Vector3> points;
  if (setting(IdHornKnotPath)) {
    for (const auto& key : horn.path) points.push_back(key.second);
    const int subdivision =
        horn.segments < 1
            ? 0
            : limitedCount(std::floor(horn.segments - 1) / static_cast<double>(points.size()),
                           kMaxPathPoints, "Horn path subdivision");
    return createPointSpline(name + "_Spline", 0, Matrix4::identity(), 1, 0, subdivision, points);
  }
  const ClassicSpline spline = splineOf(horn.path);
  const int count = limitedCount(horn.segments, kMaxPathPoints, "Horn path points");
  for (int i = 0; i <= count; ++i)
    points.push_back(spline.pointAt(horn.segments > 0 ? i / horn.segments : 0.0) * 10.0);
  return createPointSpline(name + "_Spline", 0, Matrix4::identity(), 0, 0, 0, points);
}

std::string MvrToMv4Loader::curvaturePath(const std::string& name, const MvrHornRecord& record,
                                          double curvLength) {
  return createCurvatureSpline(name + "_Curvature",
                               curvatureOf(record, setting(IdFractionalCurvature), curvLength));
}

std::string MvrToMv4Loader::createClassicLeaf(const MvrHeader& header, const MvrHornRecord& leaf) {
  const std::vector<double> positions = leafPositions(leaf.dense, leaf.segments);
  MvrBranchRecord branch;
  branch.thickness = leaf.shape;
  const double tip = leaf.shape.evaluate(1.0);
  if (std::fabs(tip) > kZeroTolerance) {
    // The outline is drawn against the uneven steps and closes to 0 at the tip: smooth points
    // on a default curve, whose ends stay corners.
    std::map<double, double> outline;
    for (size_t i = 0; i < positions.size(); ++i) {
      const double x = leaf.segments > 0 ? i / leaf.segments : 1.0;
      const double y = leaf.shape.evaluate(x);
      outline[positions[i]] = (1 - x) * y + x * (y - tip);
    }
    branch.thickness = Curves::curveThrough(0.0, 1.0, outline, true);
  }
  branch.path = curvaturePath(header.name, leaf, kLeafCurvLength);
  if (branch.path.empty()) return {};
  if (!addLeafTropism("Phototropism", 4, leaf.phototropism, positions, branch.path) ||
      !addLeafTropism("Gravitropism", 5, leaf.gravitropism, positions, branch.path))
    return {};
  branch.profile = leaf.primitive;
  branch.nodeNumber = 10;
  branch.nodeAngle = Curves::quarterAngle();
  branch.nodeGrowth = CurveParam(0.0, 1.0, 0.5, 0.5, 0.5, PointSmooth);
  branch.nodeFlap = CurveParam(-kPi / 2, kPi, 0.0, 0.0, "id");
  branch.nodeDistribution = CurveParam(0.0, 1.0, 0.0, 0.5, 0.2, PointSmooth);
  branch.nodeScale = Curves::unitDensity();
  branch.nodeScrew = CurveParam(0.0, 2 * kPi, kGoldenScrew, kGoldenScrew, "id");
  branch.nodeDensity = Curves::unitDensity();
  const std::string created = createBranch(header, branch);
  if (created.empty() || !leaf.hasChildren) return created;
  // The leaf's own children stand behind a link node.
  const std::string link = createNull(MvrHeader("Standard_Link"));
  if (!link.empty()) insertUnder(link, created);
  return created;
}

// A tropism below the leaf's path when the classic curve bends somewhere inside; false only when
// one was due and could not be made.
bool MvrToMv4Loader::addLeafTropism(const std::string& name, int axis, const CurveParam& curve,
                                    const std::vector<double>& positions, const std::string& path) {
  if (!curve.hasInnerValueAbove(kZeroTolerance)) return true;
  CurveParam strength = curve;
  Curves::clampCurve(strength, positions, 0.0, kTropismLimit);
  strength.scale(kTropismLimit);
  const std::string tropism = createTropism(name, 0, axis, strength);
  return !tropism.empty() && insertUnder(tropism, path);
}

std::string MvrToMv4Loader::createClassicTree(const MvrHeader& header, const MvrTreeRecord& tree) {
  MvrBranchRecord branch;
  treeArrangement(tree, branch);
  const std::vector<double> positions =
      TreeTrunk::branchPositions(tree.branchiness, tree.branchNum, tree.version, 1.0);
  const ClassicSpline path = splineOf(tree.path);
  TreeTrunk::Settings settings;
  settings.path = &path;
  settings.length = tree.length;
  settings.segments = tree.segments;
  settings.kruschtlKnots = tree.kruschtlKnots;
  settings.deviate = &tree.deviate;
  settings.kruschtl = &tree.kruschtl;
  settings.screw = &tree.screw;
  settings.version = tree.version;
  settings.density = 1.0;
  const TreeTrunk trunk(settings, positions);
  std::vector<Vector3> framePositions;
  for (const TreeFrame& frame : trunk.buildFrames())
    framePositions.push_back(frame.matrix.position());

  branch.thickness = tree.shape;
  Curves::clampCurve(branch.thickness, positions, 0.0, 1.0);
  branch.thicknessInherited = header.primitiveType == "Tube" || header.primitiveType == "Area";
  branch.nodeAngle = tree.angle;
  Curves::clampCurve(branch.nodeAngle, positions, 0.0, kPi);
  branch.nodeDensity = treeDensity(tree.dense, positions);
  branch.nodeGrowth = treeGrowth(tree, positions, branch.nodeDensity);
  branch.nodeScale = tree.geomScale;
  Curves::clampCurve(branch.nodeScale, positions, 0.0, 1.0);

  branch.path = treePath(header.name, tree, trunk, framePositions);
  if (branch.path.empty()) return {};
  if (tree.phototropism.hasInnerValueAbove(kZeroTolerance) ||
      tree.gravitropism.hasInnerValueAbove(kZeroTolerance)) {
    std::vector<double> sampleU;
    for (const TreeSample& sample : trunk.samples()) sampleU.push_back(sample.u);
    const std::string tropism = createTropism(
        header.name + "_Tropism", 0, 4,
        treeTropism(sampleU, framePositions, tree.iniScale, tree.phototropism, tree.gravitropism));
    if (tropism.empty() || !insertUnder(tropism, branch.path)) return {};
  }
  branch.profile = tree.primitive;
  branch.pathGrowth = tree.iniScale;
  branch.pathGrowthInherited = true;
  branch.nodeThicknessCurved = true;
  branch.nodeNumber = tree.branchNum;
  branch.nodeNumberInherited = true;
  branch.nodeGrowthCurved = true;
  branch.nodeDistribution = tree.branchiness;
  branch.nodeDensityCurved = true;
  return createBranch(header, branch);
}

// The trunk's own points scaled to the path's length, or the walked frames' positions.
std::string MvrToMv4Loader::treePath(const std::string& name, const MvrTreeRecord& tree,
                                     const TreeTrunk& trunk,
                                     const std::vector<Vector3>& framePositions) {
  const double unit = unitSetting();
  std::vector<Vector3> points;
  if (setting(IdTreeKnotPath)) {
    const double pathLength = splineOf(tree.path).length();
    const double s =
        !tree.path.empty() && pathLength > kZeroTolerance ? tree.length / pathLength : 1.0;
    for (const auto& key : trunk.spline().keys)
      points.push_back(classicTurn(key.second, tree.version) * (s * unit));
    return createPointSpline(name + "_Path", 0, Matrix4::identity(), 1, 0, 0, points);
  }
  for (const Vector3& position : framePositions)
    points.push_back(classicTurn(position, tree.version) * unit);
  return createPointSpline(name + "_Path", 0, Matrix4::identity(), 0, 0, 0, points);
}

}  // namespace mv
