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

// For each point, the polygons that use it, as offsets into one flat list.
struct PointPolygons {
  std::vector<uint32_t> start, polygons;
};

PointPolygons pointPolygons(const IMesh& mesh) {
  PointPolygons result;
  result.start.assign(mesh.getPointCount() + 1, 0);
  MeshPolygon polygon;
  const auto forEachCorner = [&](auto&& visit) {
    for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
      mesh.getPolygon(i, polygon);
      visit(polygon.a, i);
      visit(polygon.b, i);
      visit(polygon.c, i);
      if (!polygon.isTriangle()) visit(polygon.d, i);
    }
  };
  forEachCorner([&](uint32_t point, uint32_t) { ++result.start[point + 1]; });
  for (size_t k = 1; k < result.start.size(); ++k) result.start[k] += result.start[k - 1];
  result.polygons.resize(result.start.back());
  std::vector<uint32_t> filled(result.start.begin(), result.start.end() - 1);
  forEachCorner([&](uint32_t point, uint32_t i) { result.polygons[filled[point]++] = i; });
  return result;
}

}  // namespace

std::vector<Vector3> CornerNormals::faceNormals(const IMesh& mesh) {
  std::vector<Vector3> normals(mesh.getPolygonCount());
  MeshPolygon polygon;
  for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
    mesh.getPolygon(i, polygon);
    normals[i] = newellNormal(mesh, polygon);
  }
  return normals;
}

std::vector<Vector3> CornerNormals::compute(const IMesh& mesh, double creaseAngle) {
  const std::vector<Vector3> faces = faceNormals(mesh);
  const PointPolygons around = pointPolygons(mesh);
  const double limit = std::cos(creaseAngle);
  std::vector<Vector3> result(4 * faces.size());
  MeshPolygon polygon;
  for (uint32_t i = 0; i < faces.size(); ++i) {
    mesh.getPolygon(i, polygon);
    const Vector3 own = faces[i].normalized();
    const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
    for (int k = 0; k < 4; ++k) {
      Vector3 sum;
      for (uint32_t at = around.start[corners[k]]; at < around.start[corners[k] + 1]; ++at) {
        const Vector3& other = faces[around.polygons[at]];
        if (own == Vector3() || other.normalized().dot(own) >= limit) sum += other;
      }
      const Vector3 normal = sum.normalized();
      result[4 * i + k] = normal != Vector3() ? normal : Vector3(0, 0, 1);
    }
  }
  return result;
}

}  // namespace mv
