// RecordWeld: numbers equal records of a fixed number of 32-bit words in the order they first
// appear, the way writers number the positions of points that agree on them bit for bit. An
// open-addressing table of tagged indices over one flat array of the records, so a record costs
// its own words and about sixteen to thirty-two bytes of table.
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
  uint64_t hash(const uint32_t* record) const;
  bool equal(uint32_t index, const uint32_t* record) const;
  void grow();

  static constexpr uint64_t kEmpty = 0;

  size_t width_;
  std::vector<uint32_t> records_;
  std::vector<uint64_t> table_;  // tagged indices of records; a power of two, at most half full
};

}  // namespace mv
