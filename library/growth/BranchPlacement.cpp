// The placement step of Branch: for every grown segment of the path a body pass (the rings),
// a node pass and an end pass.
#include <cmath>
#include <string>

#include "core/BaseNode.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "curves/CurveParam.h"
#include "curves/CurveParamIntegration.h"
#include "geometry/Spline.h"
#include "growth/Branch.h"

namespace mv {
namespace {

// Everything the placement step reads before it walks the segments.
struct BranchInputs {
  int roleMask = 0;
  double growth = 0.0;           // grown part of the whole path
  double thicknessFactor = 1.0;  // multiplies the thickness curve
  double inheritedGrowth = 1.0;
  double inheritedThickness = 1.0;
  double inheritedDensity = 1.0;
  Spline* path = nullptr;
  CurveParam* thickness = nullptr;
  CurveParam* nodeGrowth = nullptr;
  CurveParam* nodeDensity = nullptr;
  CurveParam* nodeDistribution = nullptr;
  CurveParam* nodeScale = nullptr;
  double nodeNumber = 0.0;
  BaseNode* clip = nullptr;
  Matrix4 world;
  bool curvesSpanClip = true;
  bool thicknessCurved = true;
  bool growthCurved = true;
  bool densityCurved = true;
  int whorl = 1;
  int mode = 0;
};

// One grown segment of the path.
struct GrownSegment {
  uint32_t index = 0;
  uint32_t start = 0;  // its first point, counted across the spline
  uint32_t pointCount = 0;
  bool closed = false;
  bool truncated = false;
  double frac = 1.0;    // grown part of the segment
  double end = 1.0;     // where it effectively ends, after growth and clip
  double length = 1.0;  // the span that the curves cover

  // Curve coordinate of path parameter x. Only 0 / 0 needs care: the curves clamp the rest.
  double along(double x) const { return length != 0.0 ? x / length : (x > 0.0 ? 1.0 : 0.0); }
};

// The three curves that turn the nodes.
struct NodeTurns {
  CurveParam* angle = nullptr;
  CurveParam* flap = nullptr;
  CurveParam* screw = nullptr;
};

bool reportMissing(const char* tag) {
  messageSink.error(std::string("Parameter Retrieval failed!") + tag);
  return false;
}

// NaN counts as 0, so that a broken value never grows the path.
double clampUnit(double value) { return value > 0.0 ? (value < 1.0 ? value : 1.0) : 0.0; }

// Reads the growth, the inherited values and the nodes' flags.
void readValues(ParameterSet& params, BranchInputs& in) {
  in.inheritedGrowth = params.getDouble(IdCarriedGrowth);
  in.inheritedThickness = params.getDouble(IdCarriedThickness);
  in.inheritedDensity = params.getDouble(IdCarriedDensity);
  double growth = params.getDouble(Branch::pathGrowth);
  if (params.getBool(Branch::pathGrowthInherited)) growth *= in.inheritedGrowth;
  in.growth = clampUnit(growth);
  in.thicknessFactor = params.getBool(Branch::thicknessInherited) ? in.inheritedThickness : 1.0;
  in.clip = params.getNode(Branch::clipObject);
  in.world = params.getMatrix(Branch::worldMatrix);
  in.curvesSpanClip = params.getInt(Branch::curveMapping) == 1;
  in.thicknessCurved = params.getBool(Branch::nodeThicknessCurved);
  in.growthCurved = params.getBool(Branch::nodeGrowthCurved);
  in.densityCurved = params.getBool(Branch::nodeDensityCurved);
  in.whorl = params.getInt(Branch::nodeWhorl);
  in.mode = params.getInt(Branch::nodeMode);
}

// Fetches the path and the curves in their fixed order; reports the first one missing.
bool fetchCurves(ParameterSet& params, BranchInputs& in) {
  in.path = params.getSpline(Branch::pathSpline);
  if (!in.path) return reportMissing("Branch::pathSpline");
  in.thickness = params.getCurve(Branch::thickness);
  if (!in.thickness) return reportMissing("Branch::thickness");
  in.nodeGrowth = params.getCurve(Branch::nodeGrowth);
  if (!in.nodeGrowth) return reportMissing("Branch::nodeGrowth");
  in.nodeDensity = params.getCurve(Branch::nodeDensity);
  if (!in.nodeDensity) return reportMissing("Branch::nodeDensity");
  in.nodeDistribution = params.getCurve(Branch::nodeDistribution);
  in.nodeScale = params.getCurve(Branch::nodeScale);
  if (!in.nodeDistribution || !in.nodeScale) {
    return reportMissing("Branch::nodeDistribution,nodeScale,thickness");
  }
  return true;
}

// The node count, refused when its placements would not fit in memory.
bool readNodeNumber(ParameterSet& params, BranchInputs& in) {
  in.nodeNumber = params.getDouble(Branch::nodeNumber);
  if (params.getBool(Branch::nodeNumberInherited)) in.nodeNumber *= in.inheritedDensity;
  if (!(in.roleMask & RoleNodes)) return true;
  const double copies = in.mode == 1 ? 2.0 : in.mode == 0 && in.whorl > 1 ? in.whorl : 1.0;
  if (in.nodeNumber * copies > Branch::kMaxNodeNumber) {
    messageSink.error("Branch: too many nodes (nodeNumber times copies above " +
                      std::to_string(static_cast<int>(Branch::kMaxNodeNumber)) + ")");
    return false;
  }
  return true;
}

// The matrix between a and b, entry by entry; not made orthonormal again.
Matrix4 blend(const Matrix4& a, const Matrix4& b, double s) {
  Matrix4 result;
  for (int i = 0; i < 16; ++i) result.m[i] = a.m[i] * (1.0 - s) + b.m[i] * s;
  return result;
}

// Asks the clip object about the piece from prev to the frame at x and shortens seg.end where it
// cuts; true when the cut lies at prev itself, which ends the walk there.
bool clipEndsWalk(const BranchInputs& in, const Placement& prev, const Matrix4& frame, double x,
                  GrownSegment& seg) {
  const Vector3 from = in.world.transformPoint(prev.matrix.position());
  const Vector3 d = in.world.transformPoint(frame.position()) - from;
  const double length = d.length();
  if (!(length > kZeroTolerance)) return false;  // no direction to ask along
  const double t = in.clip->rayDistance(from, d, true);
  if (!(t > 0.0)) return false;
  if (t <= 0.0001) {
    seg.end = prev.position;
    return true;
  }
  seg.end = prev.position + (x - prev.position) * t / length;
  return false;
}

// Sets the ring at path parameter x, or the blend up to seg.end when x lies beyond it; true
// when the walk ends with this ring.
bool settleRing(const Placement& prev, const Matrix4& frame, double x, uint32_t i,
                const GrownSegment& seg, Placement& ring) {
  if (x <= seg.end || i == 0) {
    ring.matrix = frame;
    ring.position = x;
    return seg.end - x < kZeroTolerance;
  }
  const double span = x - prev.position;
  const double s = span != 0.0 ? clampUnit((seg.end - prev.position) / span) : 0.0;
  ring.matrix = blend(prev.matrix, frame, s);
  ring.position = seg.end;
  return true;
}

// Walks the segment's points with carried frames, one ring each, and finds seg.end.
std::vector<Placement> walkBody(const BranchInputs& in, GrownSegment& seg) {
  std::vector<Placement> body;
  const uint32_t n = seg.pointCount;
  if (n == 0) return body;  // its start would be the next segment's first point
  Placement prev;
  double t = 0.0;
  in.path->getPointAngleFrame(seg.start, t, prev.matrix);
  const uint32_t limit = seg.truncated && seg.closed ? n + 1 : n;
  for (uint32_t i = 0; i < limit; ++i) {
    Matrix4 frame;
    double x = 0.0;
    if (!in.path->getPointFrame(seg.start + (i == n ? 0 : i), prev.matrix, x, frame)) break;
    if (i == n) x = 1.0;  // closes the round
    if (i != 0 && in.clip && clipEndsWalk(in, prev, frame, x, seg)) break;
    Placement ring;
    ring.wantsData = true;
    ring.index = static_cast<int>(seg.start + i);
    ring.count = static_cast<int>(n);
    const bool last = settleRing(prev, frame, x, i, seg, ring);
    body.push_back(ring);
    prev = ring;
    if (last) break;
  }
  return body;
}

// Scales the rings by the thickness curve and writes them as a group of role 1.
int writeBody(const BranchInputs& in, const GrownSegment& seg, std::vector<Placement>& body,
              PlacementList& out) {
  if (!(in.roleMask & RoleProfile)) return 0;
  for (Placement& ring : body) {
    const double th = in.thickness->evaluate(seg.along(ring.position)) * in.thicknessFactor;
    ring.matrix.scale({th, th, th});
  }
  if (body.empty()) return 0;
  out.push_back({RoleProfile, !seg.truncated && seg.closed, std::move(body)});
  return RoleProfile;
}

Placement makeNode(const BranchInputs& in, const GrownSegment& seg, double x, int i, int count) {
  Placement node;
  in.path->getAngleFrame(x, seg.index, true, node.matrix);
  const double u = seg.along(x);
  const double s = in.nodeScale->evaluate(u);
  node.matrix.scale({s, s, s});
  node.carriedThickness =
      in.thicknessCurved ? in.thickness->evaluate(u) * in.thicknessFactor : in.inheritedThickness;
  node.carriedGrowth = in.growthCurved ? in.nodeGrowth->evaluate(u) * seg.frac : in.inheritedGrowth;
  node.carriedDensity = in.densityCurved ? in.nodeDensity->evaluate(x) : in.inheritedDensity;
  node.wantsData = true;
  node.position = x;
  node.index = i;
  node.count = count;
  return node;
}

// Spreads the nodes by equal parts of the distribution's integral; none at 0 or 1, none at or
// beyond the segment's end.
std::vector<Placement> spreadNodes(const BranchInputs& in, const GrownSegment& seg) {
  std::vector<Placement> nodes;
  CurveParamIntegration distribution(in.nodeDistribution);
  const double total = distribution.integrate(0.0, 1.0);
  if (!(std::fabs(total) > kIntegralTolerance)) return nodes;
  const double step = total / (in.nodeNumber + 1.0);
  const int count = static_cast<int>(std::floor(in.nodeNumber));
  double x = 0.0;
  for (int i = 0; i < count; ++i) {
    x = distribution.solve(x, 1.0, step);
    if (x >= seg.end) break;
    nodes.push_back(makeNode(in, seg, x, i, count));
  }
  return nodes;
}

void turn(Matrix4& matrix, double about, double angle, double flap) {
  matrix.rotateZ(about).rotateX(angle).rotateZ(flap);
}

// Mode 0: nodeWhorl copies, evenly round the tangent.
void appendWhorl(const BranchInputs& in, const Placement& node, double screw, double angle,
                 double flap, std::vector<Placement>& out) {
  if (in.whorl < 1) out.push_back(node);
  for (int k = 0; k < in.whorl; ++k) {
    out.push_back(node);
    turn(out.back().matrix, k * kTwoPi / in.whorl - screw, angle, flap);
  }
}

// Mode 1: the node and its mirror image across the plane of the tangent and the x axis.
void appendPair(const Placement& node, double screw, double angle, double flap,
                std::vector<Placement>& out) {
  out.push_back(node);
  turn(out.back().matrix, -screw, angle, flap);
  out.back().index = node.index * 2;
  out.back().count = node.count * 2;
  out.push_back(node);
  out.back().matrix.rotateZ(-screw).scale({1.0, -1.0, 1.0}).rotateX(angle).rotateZ(flap);
  out.back().index = node.index * 2 + 1;
  out.back().count = node.count * 2;
}

// Turns the nodes by screw, angle and flap, read at the plain position.
std::vector<Placement> turnNodes(const BranchInputs& in, const NodeTurns& turns,
                                 const std::vector<Placement>& nodes) {
  std::vector<Placement> turned;
  double screw = kPi;
  for (const Placement& node : nodes) {
    const double x = node.position;
    screw += turns.screw->evaluate(x);
    const double angle = -turns.angle->evaluate(x);
    const double flap = -turns.flap->evaluate(x);
    if (in.mode == 0) {
      appendWhorl(in, node, screw, angle, flap, turned);
    } else if (in.mode == 1) {
      appendPair(node, screw, angle, flap, turned);
    } else {
      turned.push_back(node);
    }
  }
  return turned;
}

// The node pass; -1 when the turning curves are missing.
int nodePass(ParameterSet& params, const BranchInputs& in, const GrownSegment& seg,
             PlacementList& out) {
  const std::vector<Placement> nodes = spreadNodes(in, seg);
  NodeTurns turns{params.getCurve(Branch::nodeAngle), params.getCurve(Branch::nodeFlap),
                  params.getCurve(Branch::nodeScrew)};
  if (!turns.angle || !turns.flap || !turns.screw) {
    reportMissing("Branch::nodeAngle,nodeFlap,nodeScrew");
    return -1;
  }
  std::vector<Placement> turned = turnNodes(in, turns, nodes);
  if (turned.empty()) return 0;
  out.push_back({RoleNodes, seg.closed, std::move(turned)});
  return RoleNodes;
}

// One group of role 8 per grown segment, holding the end element of an open one.
int endPass(const BranchInputs& in, const GrownSegment& seg, uint32_t segments,
            PlacementList& out) {
  PlacementGroup group;
  group.role = RoleEnd;
  if (!seg.closed && seg.end > kZeroTolerance) {
    Placement end;
    in.path->getAngleFrame(seg.end, seg.index, true, end.matrix);
    // Read at 1/end and 1/frac, not at end and frac: both are at least 1 and the curves clamp
    // them, so the end element always gets the curves' end values, however short growth or a
    // clip made the branch.
    end.carriedThickness = in.thicknessCurved
                               ? in.thickness->evaluate(1.0 / seg.end) * in.thicknessFactor
                               : in.inheritedThickness;
    end.carriedGrowth =
        in.growthCurved ? in.nodeGrowth->evaluate(1.0 / seg.frac) * seg.frac : in.inheritedGrowth;
    end.carriedDensity = in.densityCurved ? in.nodeDensity->evaluate(1.0) : in.inheritedDensity;
    end.wantsData = true;
    end.position = seg.frac;
    end.index = static_cast<int>(seg.index);
    end.count = static_cast<int>(segments);
    group.placements.push_back(end);
  }
  out.push_back(std::move(group));
  return RoleEnd;
}

// Body, node and end pass of one segment; -1 when a node curve is missing.
int placeSegment(ParameterSet& params, const BranchInputs& in, GrownSegment& seg, uint32_t segments,
                 PlacementList& out) {
  int placed = 0;
  std::vector<Placement> body;
  if ((in.roleMask & RoleProfile) || in.clip) body = walkBody(in, seg);
  seg.length = in.curvesSpanClip ? seg.end : seg.frac;
  placed |= writeBody(in, seg, body, out);
  if ((in.roleMask & RoleNodes) && in.nodeNumber > 0.0) {
    const int nodes = nodePass(params, in, seg, out);
    if (nodes < 0) return -1;
    placed |= nodes;
  }
  if (in.roleMask & RoleEnd) placed |= endPass(in, seg, segments, out);
  return placed;
}

}  // namespace

int Branch::computePlacements(ParameterSet& params, int roleMask, PlacementList& placements,
                              double) {
  BranchInputs in;
  in.roleMask = roleMask;
  readValues(params, in);
  if (!fetchCurves(params, in) || !readNodeNumber(params, in)) return 0;
  const uint32_t segments = in.path->getSegmentCount();
  int placed = 0;
  uint32_t start = 0;
  for (uint32_t c = 0; c < segments; ++c) {
    GrownSegment seg;
    const double g = in.growth * segments - c;
    if (g < kZeroTolerance) break;  // this and every later segment has not grown
    seg.index = c;
    seg.start = start;
    seg.pointCount = in.path->getSegmentPointCount(c);
    seg.closed = in.path->isSegmentClosed(c);
    seg.truncated = g < 0.99999999;
    seg.frac = seg.truncated ? g : 1.0;
    seg.end = seg.frac;
    const int result = placeSegment(params, in, seg, segments, placements);
    if (result < 0) return 0;
    placed |= result;
    start += seg.pointCount;
  }
  return placed;
}

}  // namespace mv
