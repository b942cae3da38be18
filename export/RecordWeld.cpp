#include "export/RecordWeld.h"

#include <cstring>

namespace mv {

namespace {

size_t tableSizeFor(size_t records) {
  size_t size = 16;
  while (size < 2 * records) size *= 2;
  return size;
}

}  // namespace

RecordWeld::RecordWeld(size_t width, size_t expected)
    : width_(width), table_(tableSizeFor(expected), kEmpty) {
  records_.reserve(expected * width);
}

// A multiply-xorshift mix of every word: corners of neighbouring points differ in few bits.
size_t RecordWeld::hash(const uint32_t* record) const {
  uint64_t hash = 0x9e3779b97f4a7c15ull;
  for (size_t k = 0; k < width_; ++k) {
    hash = (hash ^ record[k]) * 0xff51afd7ed558ccdull;
    hash ^= hash >> 32;
  }
  return size_t(hash);
}

bool RecordWeld::equal(uint32_t index, const uint32_t* record) const {
  return std::memcmp(records_.data() + size_t(index) * width_, record, width_ * 4) == 0;
}

uint32_t RecordWeld::indexOf(const uint32_t* record) {
  const size_t mask = table_.size() - 1;
  for (size_t slot = hash(record) & mask;; slot = (slot + 1) & mask) {
    const uint32_t index = table_[slot];
    if (index == kEmpty) {
      const uint32_t added = uint32_t(size());
      records_.insert(records_.end(), record, record + width_);
      table_[slot] = added;
      if (2 * size() > table_.size()) grow();
      return added;
    }
    if (equal(index, record)) return index;
  }
}

void RecordWeld::grow() {
  std::vector<uint32_t> larger(table_.size() * 2, kEmpty);
  const size_t mask = larger.size() - 1;
  for (uint32_t index = 0; index < size(); ++index) {
    size_t slot = hash(record(index)) & mask;
    while (larger[slot] != kEmpty) slot = (slot + 1) & mask;
    larger[slot] = index;
  }
  table_.swap(larger);
}

}  // namespace mv
