// Shared checks of meshes and outlines: index validity, polygon normals and areas, so that every
// test judges geometry the same way.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "MeshData.h"
#include "Vector3.h"

// Newell's normal of a polygon, not normalised; a triangle (c == d) counts its corners once.
inline mv::Vector3 polygonNormal(const mv::MeshData& mesh, const mv::MeshPolygon& polygon) {
  std::vector<uint32_t> corners = {polygon.a, polygon.b, polygon.c};
  if (!polygon.isTriangle()) corners.push_back(polygon.d);
  mv::Vector3 normal;
  for (size_t k = 0; k < corners.size(); ++k) {
    const mv::Vector3& p = mesh.points[corners[k]];
    const mv::Vector3& q = mesh.points[corners[(k + 1) % corners.size()]];
    normal += mv::Vector3((p.y - q.y) * (p.z + q.z), (p.z - q.z) * (p.x + q.x),
                          (p.x - q.x) * (p.y + q.y));
  }
  return normal;
}

inline mv::Vector3 polygonCentroid(const mv::MeshData& mesh, const mv::MeshPolygon& polygon) {
  return (mesh.points[polygon.a] + mesh.points[polygon.b] + mesh.points[polygon.c] +
          mesh.points[polygon.d]) *
         0.25;
}

// Every corner names a point, the texture list matches the polygons, and no polygon repeats a
// corner except a triangle's third.
inline void expectWellFormedMesh(const mv::MeshData& mesh) {
  const uint32_t points = mesh.getPointCount();
  ASSERT_EQ(mesh.texturePolygons.size(), mesh.polygons.size());
  for (size_t i = 0; i < mesh.polygons.size(); ++i) {
    const mv::MeshPolygon& p = mesh.polygons[i];
    EXPECT_TRUE(p.a < points && p.b < points && p.c < points && p.d < points) << "polygon " << i;
    EXPECT_TRUE(p.a != p.b && p.b != p.c && p.a != p.c && p.d != p.a && p.d != p.b)
        << "polygon " << i;
  }
}

// Twice the signed area of a triangle in the x-y plane.
inline double doubleArea(const mv::Vector3& a, const mv::Vector3& b, const mv::Vector3& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Signed area of a closed outline in the x-y plane, positive when counter-clockwise.
inline double outlineArea(const std::vector<mv::Vector3>& outline) {
  double sum = 0.0;
  for (size_t k = 0; k < outline.size(); ++k) {
    const mv::Vector3& p = outline[k];
    const mv::Vector3& q = outline[(k + 1) % outline.size()];
    sum += p.x * q.y - p.y * q.x;
  }
  return 0.5 * sum;
}
