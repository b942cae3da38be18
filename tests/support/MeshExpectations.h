// Shared checks of meshes: bounding boxes, and whether a surface is closed and turned outward.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "MeshData.h"

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

// Six times the signed volume enclosed by the polygons, each split at its first corner. The
// polygons of the library run clockwise seen from outside, as the host's faces do, so a closed
// surface whose faces point outward encloses a negative volume by this count.
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

// Checks that the surface is closed and turned outward; gives the volume it encloses.
inline double expectClosedOutwardMesh(const mv::MeshData& mesh) {
  EXPECT_EQ(WeldedEdges(mesh).unmatchedEdges(), 0);
  const double volume = -signedVolume6(mesh) / 6.0;
  EXPECT_GT(volume, 0.0);
  return volume;
}
