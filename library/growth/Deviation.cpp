#include "growth/Deviation.h"

#include <cmath>
#include <vector>

#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"
#include "curves/CurveParamIntegration.h"
#include "geometry/Spline.h"

namespace mv {

namespace {

// A parameter with a frame: a point of the spline, a node, or a link of the chain.
struct DevFrame {
  double x;
  Matrix4 matrix;
};

// A point relative to the last node at or before it (-1: before the first node).
struct DevPoint {
  int32_t node;
  Matrix4 matrix;
};

struct Owner {
  double nodeNumber;
  const CurveParam* distribution;
  const CurveParam* screw;
  const CurveParam* angle;
};

// The carried frames of a segment's points; false when one cannot be built.
bool pointFrames(const Spline& spline, uint32_t first, uint32_t count,
                 std::vector<DevFrame>& frames) {
  Matrix4 previous;
  for (uint32_t j = 0; j < count; ++j) {
    DevFrame frame{0.0, Matrix4()};
    if (!spline.getPointFrame(first + j, previous, frame.x, frame.matrix)) return false;
    previous = frame.matrix;
    frames.push_back(frame);
  }
  return true;
}

// The node positions of the owning Branch's node pass: equal shares of the distribution's
// area, no node at either end.
std::vector<DevFrame> nodeFrames(const Spline& spline, uint32_t segment, const Owner& owner) {
  std::vector<DevFrame> nodes;
  CurveParamIntegration area(owner.distribution);
  const double total = area.integrate(0.0, 1.0);
  if (!(std::fabs(total) > kIntegralTolerance)) return nodes;
  const double step = total / (owner.nodeNumber + 1.0);
  const long count = static_cast<long>(std::floor(owner.nodeNumber));
  double x = 0.0;
  for (long i = 0; i < count; ++i) {
    x = area.solve(x, 1.0, step);
    DevFrame node{x, Matrix4()};
    spline.getAngleFrame(x, segment, true, node.matrix);
    nodes.push_back(node);
  }
  return nodes;
}

std::vector<DevPoint> relativePoints(const std::vector<DevFrame>& points,
                                     const std::vector<DevFrame>& nodes) {
  std::vector<DevPoint> relative;
  int32_t node = -1;
  for (const DevFrame& point : points) {
    while (node + 1 < static_cast<int32_t>(nodes.size()) && nodes[node + 1].x <= point.x) ++node;
    relative.push_back(
        {node, node < 0 ? point.matrix : point.matrix * nodes[node].matrix.inverse()});
  }
  return relative;
}

// Each link carries one node frame to the next; every link takes its node's kink.
std::vector<Matrix4> kinkedChain(const std::vector<DevFrame>& nodes, const Owner& owner) {
  std::vector<Matrix4> chain;
  for (size_t u = 0; u < nodes.size(); ++u) {
    const Matrix4 link = u == 0 ? nodes[0].matrix : nodes[u].matrix * nodes[u - 1].matrix.inverse();
    const double s = -owner.screw->evaluate(nodes[u].x);
    const double a = -owner.angle->evaluate(nodes[u].x);
    chain.push_back(Matrix4::rotationX(a) * Matrix4::rotationZ(s) * link);
  }
  return chain;
}

void kinkSegment(Spline& spline, uint32_t segment, uint32_t first, const Owner& owner) {
  std::vector<DevFrame> points;
  if (!pointFrames(spline, first, spline.getSegmentPointCount(segment), points)) return;
  const std::vector<DevFrame> nodes = nodeFrames(spline, segment, owner);
  const std::vector<DevPoint> relative = relativePoints(points, nodes);
  const std::vector<Matrix4> chain = kinkedChain(nodes, owner);
  Matrix4 carried;
  int32_t node = -1;
  for (size_t j = 0; j < points.size(); ++j) {
    while (node < relative[j].node) carried = chain[++node] * carried;
    const Vector3 position = (relative[j].matrix * carried).position();
    spline.setPoint(first + static_cast<uint32_t>(j), points[j].x, position);
  }
}

bool readOwner(ParameterSet& params, Owner& owner) {
  bool found = false;
  owner.nodeNumber = params.getDouble(Deviation::ownerNodeNumber, &found);
  owner.distribution = params.getCurve(Deviation::ownerNodeDistribution);
  owner.screw = params.getCurve(Deviation::ownerNodeScrew);
  owner.angle = params.getCurve(Deviation::deviationAngle);
  return found && owner.distribution && owner.screw && owner.angle;
}

}  // namespace

bool Deviation::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setCurve(deviationAngle, CurveParam(0.0, kPi, kPi / 4, kPi / 4, "id"));
  return true;
}

std::string& Deviation::typeName(std::string& out) { return out = "Deviation"; }

int Deviation::modifierKinds() { return ModifierDeformSpline; }

bool Deviation::deformSpline(ParameterSet& params, Spline& spline, const Matrix4&) {
  Owner owner;
  if (!readOwner(params, owner)) return true;  // not below a Branch: no effect, no error
  if (std::isnan(owner.nodeNumber) || owner.nodeNumber > kMaxNodes) {
    messageSink.error("Deviation: ownerNodeNumber out of range");
    return true;
  }
  uint32_t first = 0;
  for (uint32_t segment = 0; segment < spline.getSegmentCount(); ++segment) {
    kinkSegment(spline, segment, first, owner);
    first += spline.getSegmentPointCount(segment);
  }
  return true;
}

}  // namespace mv
