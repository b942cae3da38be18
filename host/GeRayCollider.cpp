#include "host/GeRayCollider.h"

#include <cmath>

#include "host/PolygonObject.h"

Bool GeRayCollider::Init(BaseObject* goal, Bool) {
  triangles_.clear();
  hits_.clear();
  auto* poly = dynamic_cast<PolygonObject*>(goal);
  if (!poly) return false;
  const Vector* p = poly->GetPointR();
  for (Int32 i = 0; i < poly->GetPolygonCount(); ++i) {
    const CPolygon& f = poly->GetPolygonR()[i];
    triangles_.push_back({p[f.a], p[f.b], p[f.c], i});
    if (!f.IsTriangle()) triangles_.push_back({p[f.a], p[f.c], p[f.d], i});
  }
  return true;
}

Bool GeRayCollider::Intersect(const Vector& start, const Vector& direction, Float distance,
                              Bool onlyTest) {
  hits_.clear();
  Vector d = direction.GetNormalized();
  if (d.GetLength() == 0.0) return false;
  for (const Triangle& t : triangles_) {
    // Moeller and Trumbore: solve start + s d = a + u (b - a) + v (c - a).
    Vector e1 = t.b - t.a, e2 = t.c - t.a, h = Cross(d, e2);
    Float det = Dot(e1, h);
    if (std::fabs(det) < 1e-14) continue;
    Vector q = start - t.a;
    Float u = Dot(q, h) / det;
    Vector r = Cross(q, e1);
    Float v = Dot(d, r) / det;
    Float s = Dot(e2, r) / det;
    if (u < 0.0 || v < 0.0 || u + v > 1.0 || s < 0.0 || s > distance) continue;
    Vector normal = Cross(e1, e2).GetNormalized();
    hits_.push_back({start + d * s, s, t.polygon, normal, Dot(normal, d) > 0.0});
    if (onlyTest) break;
  }
  return !hits_.empty();
}

Bool GeRayCollider::GetNearestIntersection(GeRayColResult* result) const {
  if (hits_.empty() || !result) return false;
  const GeRayColResult* nearest = &hits_[0];
  for (const GeRayColResult& hit : hits_) {
    if (hit.distance < nearest->distance) nearest = &hit;
  }
  *result = *nearest;
  return true;
}
