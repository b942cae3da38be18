#include "host/HairGuides.h"

#include "host/PolygonObject.h"

HairGuides::HairGuides(Int32 count, Int32 segments)
    : count_(count), segments_(segments), points_(size_t(count) * (segments + 1)), roots_(count) {}

HairGuides* HairGuides::Alloc(Int32 count, Int32 segments) {
  if (count < 1 || segments < 1 || Int64(count) * (segments + 1) > (Int64(1) << 24)) return nullptr;
  return new HairGuides(count, segments);
}

void HairGuides::Free(HairGuides*& guides) {
  delete guides;
  guides = nullptr;
}

void HairGuides::SetRoot(Int32 index, const HairRootData& root, Bool) {
  if (index >= 0 && index < count_) roots_[index] = root;
}

HairRootData HairGuides::GetRoot(Int32 index) const {
  return index >= 0 && index < count_ ? roots_[index] : HairRootData();
}

Bool HairGuides::GetRootData(Int32 index, Vector* position, Vector* normal) const {
  HairRootData root = GetRoot(index);
  if (!surface_ || root.m_Type != HAIR_ROOT_TYPE_POLY || root.m_ID < 0 ||
      root.m_ID >= surface_->GetPolygonCount()) {
    return false;
  }
  const CPolygon& f = surface_->GetPolygonR()[root.m_ID];
  const Vector* p = surface_->GetPointR();
  Vector a = p[f.a], b = p[f.b], c = p[f.c], d = p[f.d];
  Vector along = a + (b - a) * root.m_S;
  Vector at = f.IsTriangle() ? along + (c - a) * root.m_T
                             : along + ((d + (c - d) * root.m_S) - along) * root.m_T;
  if (position) *position = at;
  if (normal) *normal = Cross(c - a, b - a).GetNormalized();
  return true;
}
