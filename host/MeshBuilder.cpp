#include "host/MeshBuilder.h"

#include "host/PolygonObject.h"

Int32 MeshBuilder::addPoint(const Vector& p) {
  // -0.0 and 0.0 are one point.
  auto key = std::make_tuple(p.x + 0.0, p.y + 0.0, p.z + 0.0);
  auto [it, inserted] = index_.emplace(key, static_cast<Int32>(points_.size()));
  if (inserted) points_.push_back(p);
  return it->second;
}

void MeshBuilder::addQuad(const Vector& a, const Vector& b, const Vector& c, const Vector& d,
                          const UVWStruct& uvw) {
  Int32 corners[4] = {addPoint(a), addPoint(b), addPoint(c), addPoint(d)};
  Vector uv[4] = {uvw.a, uvw.b, uvw.c, uvw.d};
  // Drop repeated corners, keeping the order.
  std::vector<int> kept;
  for (int i = 0; i < 4; ++i) {
    if (corners[i] != corners[(i + 3) % 4]) kept.push_back(i);
  }
  if (kept.size() < 3) return;
  // Reversed into the host's order; a triangle repeats its third corner.
  int r0 = kept[0], r1 = kept.back(), r2 = kept[kept.size() - 2];
  int r3 = kept.size() == 4 ? kept[1] : r2;
  polygons_.emplace_back(corners[r0], corners[r1], corners[r2], corners[r3]);
  uvw_.push_back({uv[r0], uv[r1], uv[r2], uv[r3]});
}

PolygonObject* MeshBuilder::build() const {
  PolygonObject* poly = PolygonObject::Alloc(static_cast<Int32>(points_.size()),
                                             static_cast<Int32>(polygons_.size()));
  if (!poly) return nullptr;
  std::copy(points_.begin(), points_.end(), poly->GetPointW());
  std::copy(polygons_.begin(), polygons_.end(), poly->GetPolygonW());
  auto* uvw = static_cast<UVWTag*>(poly->MakeVariableTag(Tuvw, poly->GetPolygonCount()));
  for (Int32 i = 0; uvw && i < poly->GetPolygonCount(); ++i) uvw->SetSlow(i, uvw_[i]);
  return poly;
}
