// Shared checks of meshes and outlines: index validity, polygon normals and areas, bounding
// boxes, closed surfaces, so that every test judges geometry the same way.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "core/Vector3.h"
#include "geometry/MeshData.h"

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

struct Bounds {
  mv::Vector3 low{1e300, 1e300, 1e300};
  mv::Vector3 high{-1e300, -1e300, -1e300};
};

// The box around the points that polygons use.
inline Bounds boundsOf(const mv::MeshData& mesh) {
  Bounds bounds;
  for (const mv::MeshPolygon& polygon : mesh.polygons) {
    for (uint32_t index : {polygon.a, polygon.b, polygon.c, polygon.d}) {
      const mv::Vector3& p = mesh.points.at(index);
      bounds.low = {std::min(bounds.low.x, p.x), std::min(bounds.low.y, p.y),
                    std::min(bounds.low.z, p.z)};
      bounds.high = {std::max(bounds.high.x, p.x), std::max(bounds.high.y, p.y),
                     std::max(bounds.high.z, p.z)};
    }
  }
  return bounds;
}

// Points within tolerance are one point, and edges between such points vanish: grids with
// collapsed rows (poles, apexes) and faces that meet at their rims are read as one surface.
class WeldedEdges {
 public:
  WeldedEdges(const mv::MeshData& mesh, double tolerance = 1e-9) {
    for (const mv::Vector3& p : mesh.points) ids_.push_back(weld(p, tolerance));
    for (const mv::MeshPolygon& polygon : mesh.polygons) {
      const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
      for (int k = 0; k < 4; ++k) {
        const int from = ids_[corners[k]], to = ids_[corners[(k + 1) % 4]];
        if (from != to) ++directed_[{from, to}];
      }
    }
  }

  // Each directed edge once, and its reverse once: every edge is shared by two polygons that
  // run through it in opposite directions, so the surface is closed and consistently turned.
  int unmatchedEdges() const {
    int unmatched = 0;
    for (const auto& [edge, count] : directed_) {
      const auto reverse = directed_.find({edge.second, edge.first});
      if (count != 1 || reverse == directed_.end() || reverse->second != 1) ++unmatched;
    }
    return unmatched;
  }

 private:
  int weld(const mv::Vector3& p, double tolerance) {
    for (size_t i = 0; i < unique_.size(); ++i) {
      if ((unique_[i] - p).length() <= tolerance) return static_cast<int>(i);
    }
    unique_.push_back(p);
    return static_cast<int>(unique_.size()) - 1;
  }

  std::vector<mv::Vector3> unique_;
  std::vector<int> ids_;
  std::map<std::pair<int, int>, int> directed_;
};

// Six times the volume that the polygons enclose, signed by the right-hand rule: positive when
// the faces of a closed surface point outward, negative when they all point inward.
inline double signedVolume6(const mv::MeshData& mesh) {
  double sum = 0.0;
  for (const mv::MeshPolygon& polygon : mesh.polygons) {
    const mv::Vector3& a = mesh.points[polygon.a];
    const mv::Vector3& b = mesh.points[polygon.b];
    const mv::Vector3& c = mesh.points[polygon.c];
    const mv::Vector3& d = mesh.points[polygon.d];
    sum += a.dot(b.cross(c)) + a.dot(c.cross(d));
  }
  return sum;
}

// Checks that every edge is shared by two polygons running through it in opposite directions;
// gives the signed volume enclosed.
inline double expectClosedMesh(const mv::MeshData& mesh) {
  EXPECT_EQ(WeldedEdges(mesh).unmatchedEdges(), 0);
  return signedVolume6(mesh) / 6.0;
}
