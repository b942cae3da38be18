// CornerWeld: numbers the distinct vertices of a mesh's corners, a vertex being a point index
// with a fixed number of attribute words (normal, texture coordinate) that must agree bit for bit,
// in the order the vertices first appear. The vertices of each point are chained from the point,
// so a lookup reads memory near the point's last use rather than a random slot of a table; a
// point with very many vertices (a fan of thousands of polygons) sends the rest to a hash table,
// so no lookup walks more than a short chain.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "export/RecordWeld.h"

namespace mv {

class CornerWeld {
 public:
  CornerWeld(size_t pointCount, size_t width);

  // The index of the vertex at point with these width attribute words; added (and added set)
  // when new.
  uint32_t indexOf(uint32_t point, const uint32_t* attributes, bool& added);
  size_t size() const { return points_.size(); }
  uint32_t point(size_t vertex) const { return points_[vertex]; }
  const uint32_t* attributes(size_t vertex) const { return attributes_.data() + vertex * width_; }
  // Forgets every vertex; the next one is numbered 0 again.
  void clear();

 private:
  static constexpr uint32_t kNone = 0xffffffffu;
  static constexpr uint8_t kLongestChain = 32;

  bool sameAttributes(uint32_t vertex, const uint32_t* attributes) const;
  uint32_t add(uint32_t point, const uint32_t* attributes);
  uint32_t overflowIndexOf(uint32_t point, const uint32_t* attributes, bool& added);

  size_t width_;
  std::vector<uint32_t> latest_;    // per point: its latest vertex, or kNone
  std::vector<uint8_t> chained_;    // per point: how many vertices its chain holds
  std::vector<uint32_t> previous_;  // per vertex: the vertex before it at the same point
  std::vector<uint32_t> points_, attributes_;
  RecordWeld overflow_;                   // point and attributes of vertices past a full chain
  std::vector<uint32_t> overflowVertex_;  // the vertex of each overflow record
};

}  // namespace mv
