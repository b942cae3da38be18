#include "growth/Tropism.h"

#include <algorithm>
#include <cmath>

#include "core/BaseNode.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"
#include "curves/CurveParamIntegration.h"
#include "geometry/Spline.h"

namespace mv {

namespace {

constexpr double kTinyComponent = 1e-10;

bool isTiny(const Vector3& v) {
  return std::fabs(v.x) <= kTinyComponent && std::fabs(v.y) <= kTinyComponent &&
         std::fabs(v.z) <= kTinyComponent;
}

// A vector of (nearly) no length is left alone rather than blown up.
Vector3 normalize(const Vector3& v) { return isTiny(v) ? v : v / v.length(); }

Vector3 axisDirection(int axis) {
  static const Vector3 kAxes[] = {{1, 0, 0},  {-1, 0, 0}, {0, 1, 0},
                                  {0, -1, 0}, {0, 0, 1},  {0, 0, -1}};
  return axis >= 0 && axis < 6 ? kAxes[axis] : kAxes[4];
}

// Rotation by angle about the unit axis n, for row vectors.
Matrix4 axisRotation(const Vector3& n, double angle) {
  const double c = std::cos(angle), si = std::sin(angle), t = 1.0 - c;
  return Matrix4::fromRows({n.x * n.x * t + c, n.x * n.y * t + n.z * si, n.x * n.z * t - n.y * si},
                           {n.x * n.y * t - n.z * si, n.y * n.y * t + c, n.y * n.z * t + n.x * si},
                           {n.x * n.z * t + n.y * si, n.y * n.z * t - n.x * si, n.z * n.z * t + c},
                           {0, 0, 0});
}

// What one deformation needs besides the spline.
struct Bend {
  int mode;
  Vector3 direction;  // D: fixed in mode 0, found per point in modes 1 and 2
  Matrix4 target;     // W: the target's world matrix, identity without a target
  const Spline* targetSpline;
  Matrix4 toWorld;
  Matrix4 toLocal;
  double invGrowth;
  CurveParamIntegration* strength;
};

// D for the point at world position p.
Vector3 directionAt(const Bend& bend, const Vector3& p) {
  if (bend.mode == Tropism::ModeTowardTarget) return bend.target.position() - p;
  if (bend.mode != Tropism::ModeAlongTarget) return bend.direction;
  uint32_t segment = 0;
  double t = 0.0;
  if (!bend.targetSpline->findClosest(p, segment, t)) return {};
  Vector3 tangent;
  bend.targetSpline->getTangent(t, segment, true, tangent);
  return bend.target.transformVector(tangent);
}

// The turn about p0 that step s takes toward the local direction, as an affine map; the
// identity when the step does not turn.
Matrix4 stepTurn(const Bend& bend, const Vector3& p0, const Vector3& s, double x0, double x1) {
  const Vector3 local =
      bend.toLocal.transformVector(directionAt(bend, bend.toWorld.transformPoint(p0 + s)));
  const double b = bend.strength->integrate(std::clamp(x0 * bend.invGrowth, 0.0, 1.0),
                                            std::clamp(x1 * bend.invGrowth, 0.0, 1.0));
  const Vector3 along = normalize(s);
  const Vector3 v = normalize(local) * b + along;
  const double angle = std::acos(std::clamp(along.dot(normalize(v)), -1.0, 1.0));
  const Vector3 axis = s.cross(v);
  // A step of no length has no axis to turn about, and a strength that is not a number gives no
  // angle: either way the step stays in place.
  if (!(angle > kZeroTolerance) || isTiny(axis)) return Matrix4();
  return Matrix4::translation(-p0) * axisRotation(normalize(axis), angle) *
         Matrix4::translation(p0);
}

// Each step turns the whole rest of the segment. Rather than moving every later point at each
// step, the turns are composed, and a point is carried once by all the turns before and at it.
void bendSegment(const Bend& bend, Spline& spline, uint32_t first, uint32_t count) {
  if (count < 2) return;
  double x0 = 0.0;
  Vector3 p0;
  spline.getPoint(first, x0, p0);
  Matrix4 turns;
  for (uint32_t k = first + 1; k < first + count; ++k) {
    double x1 = 0.0;
    Vector3 original;
    if (!spline.getPoint(k, x1, original)) return;
    const Vector3 p1 = turns.transformPoint(original);
    turns = turns * stepTurn(bend, p0, p1 - p0, x0, x1);
    p0 = turns.transformPoint(original);
    x0 = x1;
    spline.setPoint(k, x1, p0);
  }
}

}  // namespace

bool Tropism::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setInt(tropismMode, ModeAxis);
  params.setInt(tropismAxis, 4);
  params.setCurve(tropismStrength, CurveParam(-1.0, 1.0, 0.2, 0.2, "id"));
  params.setBool(tropismFollowGrowth, false);
  return true;
}

std::string& Tropism::typeName(std::string& out) { return out = "Tropism"; }

int Tropism::modifierKinds() { return ModifierDeformSpline; }

bool Tropism::deformSpline(ParameterSet& params, Spline& spline, const Matrix4& toWorld) {
  double growth = 1.0;
  if (params.getBool(tropismFollowGrowth)) {
    growth = params.getDouble(IdCarriedGrowth) * params.getDouble(IdGrowthAbove);
  }
  const CurveParam* strength = params.getCurve(tropismStrength);
  if (!strength) {
    messageSink.error("Parameter Retrieval failed!");
    return false;
  }
  if (!(growth > kZeroTolerance)) return true;  // nothing has grown, so nothing is there to bend
  CurveParamIntegration integration(strength);
  BaseNode* target = params.getNode(tropismTarget);
  Bend bend{params.getInt(tropismMode), {0, 0, 1},    Matrix4(),   nullptr, toWorld,
            toWorld.inverse(),          1.0 / growth, &integration};
  if (target) {
    target->globalMatrix(bend.target);
    bend.targetSpline = target->spline();
  }
  if (bend.mode == ModeAxis) {
    bend.direction = bend.target.transformVector(axisDirection(params.getInt(tropismAxis)));
  }
  if (bend.mode == ModeAlongTarget && !bend.targetSpline) return true;
  uint32_t first = 0;
  for (uint32_t segment = 0; segment < spline.getSegmentCount(); ++segment) {
    const uint32_t count = spline.getSegmentPointCount(segment);
    bendSegment(bend, spline, first, count);
    first += count;
  }
  spline.finish();
  return true;
}

}  // namespace mv
