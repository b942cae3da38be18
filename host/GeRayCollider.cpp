#include "host/GeRayCollider.h"

#include <algorithm>
#include <cmath>

#include "host/HostIds.h"
#include "host/PolygonObject.h"

namespace {

constexpr Float kParallel = 1e-12;

}  // namespace

Bool GeRayCollider::Init(BaseObject* goal, Bool) {
  hits_.clear();
  goal_ =
      goal != nullptr && goal->IsInstanceOf(Opolygon) ? static_cast<PolygonObject*>(goal) : nullptr;
  return goal_ != nullptr;
}

Bool GeRayCollider::Intersect(const Vector& start, const Vector& direction, Float distance, Bool) {
  hits_.clear();
  if (goal_ == nullptr) return false;
  const Vector way = direction.GetNormalized();
  const Vector* points = goal_->GetPointR();
  const Int32 pointCount = goal_->GetPointCount();
  for (Int32 i = 0; i < goal_->GetPolygonCount(); ++i) {
    const CPolygon& p = goal_->GetPolygonR()[i];
    if (std::max({p.a, p.b, p.c, p.d}) >= pointCount || std::min({p.a, p.b, p.c, p.d}) < 0) {
      continue;
    }
    testTriangle(start, way, distance, i, points[p.a], points[p.b], points[p.c]);
    if (p.c != p.d) testTriangle(start, way, distance, i, points[p.a], points[p.c], points[p.d]);
  }
  return !hits_.empty();
}

// Moeller and Trumbore: the barycentric solve of start + t * direction inside the triangle.
void GeRayCollider::testTriangle(const Vector& start, const Vector& direction, Float distance,
                                 Int32 face, const Vector& a, const Vector& b, const Vector& c) {
  const Vector edge1 = b - a;
  const Vector edge2 = c - a;
  const Vector across = Cross(direction, edge2);
  const Float determinant = Dot(edge1, across);
  if (std::abs(determinant) < kParallel) return;
  const Vector offset = start - a;
  const Float u = Dot(offset, across) / determinant;
  if (u < 0.0 || u > 1.0) return;
  const Vector up = Cross(offset, edge1);
  const Float v = Dot(direction, up) / determinant;
  if (v < 0.0 || u + v > 1.0) return;
  const Float t = Dot(edge2, up) / determinant;
  if (t < 0.0 || t > distance) return;
  GeRayColResult hit;
  hit.hitpos = start + direction * t;
  hit.distance = t;
  hit.face_id = face;
  hit.backface = Dot(Cross(edge1, edge2), direction) > 0.0;
  hits_.push_back(hit);
}

Bool GeRayCollider::GetNearestIntersection(GeRayColResult* result) const {
  if (hits_.empty() || result == nullptr) return false;
  *result = *std::min_element(
      hits_.begin(), hits_.end(),
      [](const GeRayColResult& x, const GeRayColResult& y) { return x.distance < y.distance; });
  return true;
}
