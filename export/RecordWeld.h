// RecordWeld: numbers equal records of a fixed number of 32-bit words in the order they first
// appear, the way writers share a vertex or a texture coordinate among the corners that agree on
// it bit for bit. An open-addressing table of indices over one flat array of the records, so a
// record costs its own words and about eight bytes of table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mv {

class RecordWeld {
 public:
  // Records of width words; expected is a hint of how many distinct records will come.
  RecordWeld(size_t width, size_t expected);

  // The index of the record equal to these width words, added at the end when new.
  uint32_t indexOf(const uint32_t* record);
  size_t size() const { return records_.size() / width_; }
  const uint32_t* record(size_t index) const { return records_.data() + index * width_; }

 private:
  size_t hash(const uint32_t* record) const;
  bool equal(uint32_t index, const uint32_t* record) const;
  void grow();

  static constexpr uint32_t kEmpty = 0xffffffffu;

  size_t width_;
  std::vector<uint32_t> records_;
  std::vector<uint32_t> table_;  // indices of records; a power of two, at most half full
};

}  // namespace mv
