#include "geometry/CurvatureSpline.h"

#include <algorithm>
#include <cmath>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

// The six curves of the walk, read at the previous step's parameter.
struct WalkCurves {
  const CurveParam* rotateX;
  const CurveParam* rotateY;
  const CurveParam* rotateZ;
  const CurveParam* moveX;
  const CurveParam* moveY;
  const CurveParam* moveZ;
};

// The walk's numbers: n steps over length L, angle step a, move step m, last index N.
struct Walk {
  double steps;
  double angleStep;
  double moveStep;
  double scaleZ;
  bool fractional;
  long lastIndex;
};

bool fetchCurves(ParameterSet& params, WalkCurves& curves) {
  curves.rotateX = params.getCurve(CurvatureSpline::curv_rota_x);
  curves.rotateY = params.getCurve(CurvatureSpline::curv_rota_y);
  curves.rotateZ = params.getCurve(CurvatureSpline::curv_rota_z);
  if (!curves.rotateX || !curves.rotateY || !curves.rotateZ) {
    messageSink.error("Parameter Retrieval failed!CurvatureSpline::curv_rota_x,y,z");
    return false;
  }
  curves.moveX = params.getCurve(CurvatureSpline::curv_tran_x);
  curves.moveY = params.getCurve(CurvatureSpline::curv_tran_y);
  curves.moveZ = params.getCurve(CurvatureSpline::curv_tran_z);
  if (!curves.moveX || !curves.moveY || !curves.moveZ) {
    messageSink.error("Parameter Retrieval failed!CurvatureSpline::curv_tran_x,y,z");
    return false;
  }
  return true;
}

bool readWalk(ParameterSet& params, Walk& walk) {
  walk.steps = params.getDouble(CurvatureSpline::curvSteps);
  if (!(std::fabs(walk.steps) <= CurvatureSpline::kMaxSteps)) {
    messageSink.error("CurvatureSpline: curvSteps out of range");
    return false;
  }
  const double length = params.getDouble(CurvatureSpline::curvLength);
  walk.fractional = params.getBool(CurvatureSpline::curvFractional);
  walk.scaleZ = params.getDouble(CurvatureSpline::curvScaleZ);
  walk.angleStep = length / (walk.steps + 1.0);
  walk.moveStep = length / walk.steps;
  walk.lastIndex =
      static_cast<long>(walk.fractional ? std::ceil(walk.steps) : std::floor(walk.steps));
  return true;
}

// Parameter of step i; a walk of no steps stays at 0.
double stepParameter(const Walk& walk, long i) {
  if (walk.fractional) {
    return walk.steps > 0.0 ? std::clamp(i / walk.steps, 0.0, 1.0) : 0.0;
  }
  return walk.lastIndex > 0 ? static_cast<double>(i) / walk.lastIndex : 0.0;
}

// One step in the walker's own frame: each new transform multiplies from the left.
void takeStep(const Walk& walk, const WalkCurves& curves, long i, double up, Matrix4& m) {
  const double w = i - walk.steps > 0.0 ? 1.0 - (i - walk.steps) : 1.0;  // short last step
  const double k = std::sin(w * kHalfPi);
  const double a = walk.angleStep, step = walk.moveStep;
  m.rotateX(-(curves.rotateX->evaluate(up) * k) * a);
  m.rotateY(curves.rotateY->evaluate(up) * k * a);
  m.rotateZ(-(curves.rotateZ->evaluate(up) * k) * a);
  const double x = curves.moveX->evaluate(up) * w * step;
  const double y = curves.moveY->evaluate(up) * w * step;
  const double z = w * curves.moveZ->evaluate(up) * step * walk.scaleZ;
  m.translate({x, y, z});
}

}  // namespace

bool CurvatureSpline::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setDouble(curvSteps, 20.0);
  params.setBool(curvFractional, true);
  params.setDouble(curvScaleZ, 1.0);
  params.setDouble(curvLength, 1.0);
  const CurveParam turn(-kPi, kPi, 0.0, 0.0, "id");
  params.setCurve(curv_rota_x, turn);
  params.setCurve(curv_rota_y, turn);
  params.setCurve(curv_rota_z, turn);
  const CurveParam sideways(-5.0, 5.0, 0.0, 0.0, "id");
  params.setCurve(curv_tran_x, sideways);
  params.setCurve(curv_tran_y, sideways);
  params.setCurve(curv_tran_z, CurveParam(-5.0 * size, 10.0 * size, 5.0 * size, 5.0 * size, "id"));
  return true;
}

std::string& CurvatureSpline::typeName(std::string& out) { return out = "CurvatureSpline"; }

uint32_t CurvatureSpline::getSegmentPointCount(uint32_t segment) const {
  return segment == 0 ? getPointCount() : 0;
}

uint32_t CurvatureSpline::getPointCount() const { return static_cast<uint32_t>(frames_.size()); }

void CurvatureSpline::getPosition(double t, uint32_t segment, bool smooth,
                                  Vector3& position) const {
  Matrix4 frame;
  getAngleFrame(t, segment, smooth, frame);
  position = frame.row(3);
}

void CurvatureSpline::getTangent(double t, uint32_t segment, bool smooth, Vector3& tangent) const {
  Matrix4 frame;
  getAngleFrame(t, segment, smooth, frame);
  tangent = frame.row(2);
}

void CurvatureSpline::getAngleFrame(double t, uint32_t, bool, Matrix4& frame) const {
  if (frames_.empty()) {
    frame = Matrix4();
    return;
  }
  const auto later =
      std::find_if(frames_.begin(), frames_.end(), [t](const SplineFrame& f) { return f.t >= t; });
  if (later == frames_.end()) {
    frame = frames_.back().matrix;
    return;
  }
  if (later->t == t || later == frames_.begin()) {
    frame = later->matrix;
    return;
  }
  const SplineFrame& earlier = *(later - 1);
  const double f = (t - earlier.t) / (later->t - earlier.t);
  for (int e = 0; e < 16; ++e)
    frame.m[e] = (1.0 - f) * earlier.matrix.m[e] + f * later->matrix.m[e];
}

bool CurvatureSpline::getPoint(uint32_t index, double& t, Vector3& point) const {
  if (index >= frames_.size()) return false;
  t = frames_[index].t;
  point = frames_[index].matrix.row(3);
  return true;
}

bool CurvatureSpline::getPointAngleFrame(uint32_t index, double& t, Matrix4& frame) const {
  if (index >= frames_.size()) return false;
  t = frames_[index].t;
  frame = frames_[index].matrix;
  return true;
}

int CurvatureSpline::placeChildren(ParameterSet& params, int roleMask, PlacementList& placements,
                                   double lod) {
  if (!(roleMask & RoleProfile)) return 0;
  if (!computeFrames(params, lod)) return 0;
  PlacementGroup group;
  group.role = RoleProfile;
  const int count = static_cast<int>(frames_.size());
  for (int i = 0; i < count; ++i) {
    Placement placement;
    placement.matrix = frames_[i].matrix;
    placement.position = frames_[i].t;
    placement.wantsData = true;
    placement.index = i;
    placement.count = count;
    group.placements.push_back(std::move(placement));
  }
  placements.push_back(std::move(group));
  return RoleProfile;
}

bool CurvatureSpline::computeFrames(ParameterSet& params, double) {
  WalkCurves curves;
  Walk walk;
  if (!fetchCurves(params, curves) || !readWalk(params, walk)) return false;
  frames_.clear();
  frames_.reserve(static_cast<size_t>(std::max(walk.lastIndex + 1, 0L)));
  Matrix4 m;
  double up = 0.0;
  for (long i = 0; i <= walk.lastIndex; ++i) {
    const double u = stepParameter(walk, i);
    if (i > 0) takeStep(walk, curves, i, up, m);
    frames_.push_back({m, u});
    up = u;
  }
  return true;
}

}  // namespace mv
