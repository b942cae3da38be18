#include "export/CornerWeld.h"

#include <cstring>

namespace mv {

CornerWeld::CornerWeld(size_t pointCount, size_t width)
    : width_(width),
      latest_(pointCount, kNone),
      chained_(pointCount, 0),
      overflow_(width + 1, 16) {}

bool CornerWeld::sameAttributes(uint32_t vertex, const uint32_t* attributes) const {
  const uint32_t* stored = attributes_.data() + size_t(vertex) * width_;
  for (size_t k = 0; k < width_; ++k) {
    if (stored[k] != attributes[k]) return false;
  }
  return true;
}

uint32_t CornerWeld::indexOf(uint32_t point, const uint32_t* attributes, bool& added) {
  added = false;
  for (uint32_t v = latest_[point]; v != kNone; v = previous_[v]) {
    if (sameAttributes(v, attributes)) return v;
  }
  if (chained_[point] == kLongestChain) return overflowIndexOf(point, attributes, added);
  added = true;
  const uint32_t vertex = add(point, attributes);
  previous_.push_back(latest_[point]);
  latest_[point] = vertex;
  ++chained_[point];
  return vertex;
}

uint32_t CornerWeld::add(uint32_t point, const uint32_t* attributes) {
  points_.push_back(point);
  attributes_.insert(attributes_.end(), attributes, attributes + width_);
  return uint32_t(points_.size() - 1);
}

uint32_t CornerWeld::overflowIndexOf(uint32_t point, const uint32_t* attributes, bool& added) {
  std::vector<uint32_t> record(width_ + 1);
  record[0] = point;
  std::memcpy(record.data() + 1, attributes, width_ * 4);
  const uint32_t index = overflow_.indexOf(record.data());
  if (index < overflowVertex_.size()) return overflowVertex_[index];
  added = true;
  const uint32_t vertex = add(point, attributes);
  previous_.push_back(kNone);  // not in any chain
  overflowVertex_.push_back(vertex);
  return vertex;
}

void CornerWeld::clear() {
  for (uint32_t point : points_) {
    latest_[point] = kNone;
    chained_[point] = 0;
  }
  previous_.clear();
  points_.clear();
  attributes_.clear();
  overflow_ = RecordWeld(width_ + 1, 16);
  overflowVertex_.clear();
}

}  // namespace mv
