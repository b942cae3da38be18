#include "export/CornerNormals.h"

#include <cmath>

namespace mv {

namespace {

// Newell's normal, twice the polygon's area long; a triangle counts its third corner once.
Vector3 newellNormal(const IMesh& mesh, const MeshPolygon& polygon) {
  const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
  const int count = polygon.isTriangle() ? 3 : 4;
  Vector3 normal, p, q;
  for (int k = 0; k < count; ++k) {
    mesh.getPoint(corners[k], p);
    mesh.getPoint(corners[(k + 1) % count], q);
    normal +=
        Vector3((p.y - q.y) * (p.z + q.z), (p.z - q.z) * (p.x + q.x), (p.x - q.x) * (p.y + q.y));
  }
  return normal;
}

uint32_t cornerOf(const MeshPolygon& polygon, int corner) {
  const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
  return corners[corner];
}

}  // namespace

CornerNormals::CornerNormals(const IMesh& mesh, double creaseAngle)
    : mesh_(mesh), limit_(std::cos(creaseAngle)) {
  collectFaces();
  collectPolygonsAroundPoints();
}

void CornerNormals::collectFaces() {
  faces_.resize(mesh_.getPolygonCount());
  MeshPolygon polygon;
  for (uint32_t i = 0; i < faces_.size(); ++i) {
    mesh_.getPolygon(i, polygon);
    const Vector3 normal = newellNormal(mesh_, polygon);
    const double length = normal.length();
    const Vector3 unit = length > 0.0 ? normal / length : Vector3();
    faces_[i] = {{float(unit.x), float(unit.y), float(unit.z)}, float(length)};
  }
}

void CornerNormals::collectPolygonsAroundPoints() {
  start_.assign(size_t(mesh_.getPointCount()) + 1, 0);
  MeshPolygon polygon;
  const auto forEachCorner = [&](auto&& visit) {
    for (uint32_t i = 0; i < mesh_.getPolygonCount(); ++i) {
      mesh_.getPolygon(i, polygon);
      for (int k = 0; k < (polygon.isTriangle() ? 3 : 4); ++k) visit(cornerOf(polygon, k), i);
    }
  };
  forEachCorner([&](uint32_t point, uint32_t) { ++start_[point + 1]; });
  for (size_t k = 1; k < start_.size(); ++k) start_[k] += start_[k - 1];
  around_.resize(start_.back());
  std::vector<uint32_t> filled(start_.begin(), start_.end() - 1);
  forEachCorner([&](uint32_t point, uint32_t i) { around_[filled[point]++] = i; });
}

Vector3 CornerNormals::at(uint32_t polygonIndex, int corner) const {
  MeshPolygon polygon;
  mesh_.getPolygon(polygonIndex, polygon);
  const uint32_t point = cornerOf(polygon, corner);
  const Face& own = faces_[polygonIndex];
  const bool flat = own.area == 0.0f;
  Vector3 sum;
  for (uint32_t at = start_[point]; at < start_[point + 1]; ++at) {
    const Face& other = faces_[around_[at]];
    const double cosine = double(other.unit[0]) * own.unit[0] +
                          double(other.unit[1]) * own.unit[1] + double(other.unit[2]) * own.unit[2];
    if (flat || cosine >= limit_) {
      sum += Vector3(other.unit[0], other.unit[1], other.unit[2]) * double(other.area);
    }
  }
  const Vector3 normal = sum.normalized();
  return normal != Vector3() ? normal : Vector3(0, 0, 1);
}

}  // namespace mv
