#include "host/HairGuides.h"

#include "host/HairObject.h"
#include "host/PolygonObject.h"

namespace {

Vector pointOnPolygon(const Vector* points, const CPolygon& p, Float s, Float t) {
  if (p.IsTriangle())
    return points[p.a] + (points[p.b] - points[p.a]) * s + (points[p.c] - points[p.a]) * t;
  return points[p.a] * ((1 - s) * (1 - t)) + points[p.b] * (s * (1 - t)) + points[p.c] * (s * t) +
         points[p.d] * ((1 - s) * t);
}

}  // namespace

HairGuides::HairGuides(Int32 count, Int32 segments)
    : count_(count),
      segments_(segments),
      points_(size_t(count) * size_t(segments + 1)),
      roots_(size_t(count)) {}

HairGuides* HairGuides::Alloc(Int32 count, Int32 segments) {
  if (count < 1 || segments < 1 || Int64(count) * (Int64(segments) + 1) > kMaxPoints) {
    return nullptr;
  }
  return new HairGuides(count, segments);
}

void HairGuides::Free(HairGuides*& guides) {
  delete guides;
  guides = nullptr;
}

HairGuides* HairGuides::GetClone() const {
  auto* clone = new HairGuides(*this);
  clone->owner_ = nullptr;
  return clone;
}

void HairGuides::SetRoot(Int32 index, const HairRootData& root, Bool /*update*/) {
  if (index >= 0 && index < count_) roots_[size_t(index)] = root;
}

HairRootData HairGuides::GetRoot(Int32 index) const {
  return index >= 0 && index < count_ ? roots_[size_t(index)] : HairRootData();
}

Bool HairGuides::GetRootData(Int32 index, Vector* position, Vector* normal, Vector* direction,
                             Bool /*local*/) const {
  const HairRootData root = GetRoot(index);
  const PolygonObject* surface = owner_ ? owner_->GetRootObject() : nullptr;
  if (root.m_Type != HAIR_ROOT_TYPE_POLY || !surface || root.m_ID < 0 ||
      root.m_ID >= surface->GetPolygonCount()) {
    return false;
  }
  const CPolygon& polygon = surface->GetPolygonR()[root.m_ID];
  const Vector* points = surface->GetPointR();
  // Into the hair object's space: the surface's global matrix, then the inverse of the hair's.
  const Matrix toHair = Invert(owner_->GetMg()) * surface->GetMg();
  const Vector n =
      Cross(points[polygon.d] - points[polygon.b], points[polygon.c] - points[polygon.a]);
  const Vector up = toHair.TransformVector(n).GetNormalized();
  if (position) *position = toHair * pointOnPolygon(points, polygon, root.m_S, root.m_T);
  if (normal) *normal = up;
  if (direction) *direction = up;
  return true;
}
