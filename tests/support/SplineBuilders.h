// Builds in-memory splines for tests from plain point lists, and sample paths (line, helix).
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "geometry/SplineData.h"

// Appends one segment. Its t runs i / (n - 1), as a scene file stores it, unless ts is given.
inline void appendSegment(mv::SplineData& spline, const std::vector<mv::Vector3>& positions,
                          bool closed = false, const std::vector<double>& ts = {}) {
  const size_t n = positions.size();
  for (size_t i = 0; i < n; ++i) {
    const double t = !ts.empty() ? ts[i] : n > 1 ? static_cast<double>(i) / (n - 1) : 0.0;
    spline.points.push_back({t, positions[i]});
  }
  spline.segments.push_back({static_cast<uint32_t>(n), closed});
}

// count points evenly along the straight line from start to end.
inline std::vector<mv::Vector3> linePoints(int count, const mv::Vector3& start,
                                           const mv::Vector3& end) {
  std::vector<mv::Vector3> points;
  for (int i = 0; i < count; ++i) points.push_back(start + (end - start) * (i / (count - 1.0)));
  return points;
}

// count points on a helix about the z axis, evenly spaced in angle, rising by pitch a turn.
inline std::vector<mv::Vector3> helixPoints(int count, double radius, double pitch, double turns) {
  std::vector<mv::Vector3> points;
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * M_PI * turns * i / (count - 1.0);
    points.push_back(
        {radius * std::cos(angle), radius * std::sin(angle), pitch * angle / (2 * M_PI)});
  }
  return points;
}
