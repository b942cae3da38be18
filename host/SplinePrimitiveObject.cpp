#include "host/SplinePrimitiveObject.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/MathConstants.h"
#include "host/BaseObject.h"
#include "host/SplineObject.h"

namespace {

struct Outline {
  std::vector<std::vector<Vector>> segments;
  bool closed = true;
};

// Points between two corners a quarter turn apart, or along `sweep` radians.
Int32 stepsFor(const BaseContainer& bc, Float sweep, Int32 corners) {
  Int32 mode = bc.GetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_ADAPTIVE);
  if (mode == SPLINEOBJECT_INTERPOLATION_NONE) return corners;
  if (mode == SPLINEOBJECT_INTERPOLATION_ADAPTIVE) {
    Float angle = std::max(bc.GetReal(SPLINEOBJECT_ANGLE, 5.0 * mt::kPi / 180.0), 1e-3);
    return std::clamp(static_cast<Int32>(std::ceil(std::fabs(sweep) / angle)), corners, 10000);
  }
  return corners * (std::clamp(bc.GetLong(SPLINEOBJECT_SUB, 8), 0, 1000) + 1);
}

std::vector<Vector> arcPoints(Float radius, Float start, Float sweep, Int32 steps, bool closed) {
  std::vector<Vector> points;
  Int32 count = closed ? steps : steps + 1;
  for (Int32 i = 0; i < count; ++i) {
    Float a = start + sweep * i / steps;
    points.push_back({radius * std::cos(a), radius * std::sin(a), 0.0});
  }
  return points;
}

Outline outlineOf(const BaseObject* op) {
  const BaseContainer& bc = *op->GetDataInstance();
  Outline outline;
  const Float turn = 2.0 * mt::kPi;
  switch (op->GetType()) {
    case Osplinecircle: {
      Int32 steps = stepsFor(bc, turn, 4);
      outline.segments.push_back(arcPoints(bc.GetReal(2012), 0.0, turn, steps, true));
      if (bc.GetBool(2010)) {
        outline.segments.push_back(arcPoints(bc.GetReal(2011), 0.0, turn, steps, true));
      }
      break;
    }
    case Osplinenside: {
      Int32 sides = std::clamp(bc.GetLong(2131), 3, 10000);
      outline.segments.push_back(arcPoints(bc.GetReal(2130), mt::kPi / 2, turn, sides, true));
      break;
    }
    default: {
      Float start = bc.GetReal(2005), sweep = bc.GetReal(2006) - start;
      outline.closed = false;
      outline.segments.push_back(
          arcPoints(bc.GetReal(2001), start, sweep, stepsFor(bc, sweep, 1), false));
    }
  }
  return outline;
}

// The plane setting: xy as drawn, zy turns x into z, xz turns y into z.
Vector onPlane(const Vector& p, Int32 plane) {
  if (plane == 1) return {0.0, p.y, p.x};
  if (plane == 2) return {p.x, 0.0, p.y};
  return p;
}

}  // namespace

Bool SplinePrimitiveObject::Init(GeListNode* node) {
  auto* op = static_cast<BaseObject*>(node);
  BaseContainer& bc = *op->GetDataInstance();
  bc.SetLong(PRIM_PLANE, 0);
  bc.SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_ADAPTIVE);
  bc.SetLong(SPLINEOBJECT_SUB, 8);
  bc.SetReal(SPLINEOBJECT_ANGLE, 5.0 * mt::kPi / 180.0);
  switch (op->GetType()) {
    case Osplinecircle:
      bc.SetReal(2012, 200.0);
      bc.SetBool(2010, false);
      bc.SetReal(2011, 100.0);
      return true;
    case Osplinenside:
      bc.SetReal(2130, 200.0);
      bc.SetLong(2131, 6);
      bc.SetBool(2132, false);
      return true;
    case Osplinearc:
      bc.SetLong(2000, 0);
      bc.SetReal(2001, 200.0);
      bc.SetReal(2005, 0.0);
      bc.SetReal(2006, mt::kPi / 2);
      return true;
    default:
      return false;
  }
}

SplineObject* SplinePrimitiveObject::GetContour(BaseObject* op, BaseDocument*, Float, BaseThread*) {
  Outline outline = outlineOf(op);
  Int32 total = 0;
  for (const auto& segment : outline.segments) total += static_cast<Int32>(segment.size());
  SplineObject* spline = SplineObject::Alloc(total, SPLINETYPE_LINEAR);
  if (!spline || !spline->ResizeObject(total, static_cast<Int32>(outline.segments.size()))) {
    BaseObject* base = spline;
    BaseObject::Free(base);
    return nullptr;
  }
  spline->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_NONE);
  Int32 plane = op->GetDataInstance()->GetLong(PRIM_PLANE);
  Int32 next = 0;
  for (size_t s = 0; s < outline.segments.size(); ++s) {
    for (const Vector& p : outline.segments[s]) spline->GetPointW()[next++] = onPlane(p, plane);
    spline->GetSegmentW()[s] = {static_cast<Int32>(outline.segments[s].size()), outline.closed};
  }
  spline->SetName(op->GetName());
  return spline;
}
