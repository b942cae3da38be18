#include "export/RecordWeld.h"

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
uint64_t RecordWeld::hash(const uint32_t* record) const {
  uint64_t hash = 0x9e3779b97f4a7c15ull;
  for (size_t k = 0; k < width_; ++k) {
    hash = (hash ^ record[k]) * 0xff51afd7ed558ccdull;
    hash ^= hash >> 32;
  }
  return hash;
}

bool RecordWeld::equal(uint32_t index, const uint32_t* record) const {
  const uint32_t* stored = records_.data() + size_t(index) * width_;
  for (size_t k = 0; k < width_; ++k) {
    if (stored[k] != record[k]) return false;
  }
  return true;
}

// A slot holds the record's index plus one in its low half and the high half of the record's
// hash in its high half, so that most records that merely share a slot are told apart without
// reading them.
uint32_t RecordWeld::indexOf(const uint32_t* record) {
  const uint64_t hashed = hash(record);
  const uint64_t tag = hashed & 0xffffffff00000000ull;
  const size_t mask = table_.size() - 1;
  for (size_t slot = size_t(hashed) & mask;; slot = (slot + 1) & mask) {
    const uint64_t entry = table_[slot];
    if (entry == kEmpty) {
      const uint32_t added = uint32_t(size());
      records_.insert(records_.end(), record, record + width_);
      table_[slot] = tag | (uint64_t(added) + 1);
      if (2 * size() > table_.size()) grow();
      return added;
    }
    const uint32_t index = uint32_t(entry) - 1;
    if ((entry & 0xffffffff00000000ull) == tag && equal(index, record)) return index;
  }
}

void RecordWeld::grow() {
  std::vector<uint64_t> larger(table_.size() * 2, kEmpty);
  const size_t mask = larger.size() - 1;
  for (const uint64_t entry : table_) {
    if (entry == kEmpty) continue;
    size_t slot = size_t(hash(record(uint32_t(entry) - 1))) & mask;
    while (larger[slot] != kEmpty) slot = (slot + 1) & mask;
    larger[slot] = entry;
  }
  table_.swap(larger);
}

}  // namespace mv
