// LineStrips: open polylines to write beside a mesh, such as hair guides and grass blades.
// The points of all strips lie one after another in library axes, as the mesh's do; counts gives
// the number of points of each strip in that order. A strip of fewer than two points draws
// nothing and is left out of the files.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Vector3.h"

namespace mv {

struct LineStrips {
  std::vector<Vector3> points;
  std::vector<uint32_t> counts;

  // True when some strip has a segment to draw.
  bool hasSegments() const {
    for (uint32_t count : counts) {
      if (count >= 2) return true;
    }
    return false;
  }
  // Appends one strip.
  void add(const std::vector<Vector3>& strip) {
    points.insert(points.end(), strip.begin(), strip.end());
    counts.push_back(static_cast<uint32_t>(strip.size()));
  }
  // The segments as pairs of point indices, strip by strip.
  std::vector<uint32_t> segmentIndices() const {
    std::vector<uint32_t> indices;
    uint32_t start = 0;
    for (uint32_t count : counts) {
      for (uint32_t k = 1; k < count; ++k) {
        indices.push_back(start + k - 1);
        indices.push_back(start + k);
      }
      start += count;
    }
    return indices;
  }
};

}  // namespace mv
