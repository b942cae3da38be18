#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "export/RecordWeld.h"

// Numbers records as a map from record to first index does, through many table growths.
TEST(RecordWeld, numbersRecordsAsAMapDoes) {
  for (size_t width : {1u, 3u, 6u}) {
    std::mt19937 random{static_cast<unsigned>(width)};
    std::uniform_int_distribution<uint32_t> word(0, 7);  // few values: many repeats
    mv::RecordWeld weld(width, 1);
    std::map<std::vector<uint32_t>, uint32_t> reference;
    for (int n = 0; n < 20000; ++n) {
      std::vector<uint32_t> record(width);
      for (uint32_t& w : record) w = word(random);
      const uint32_t expected = reference.emplace(record, uint32_t(reference.size())).first->second;
      ASSERT_EQ(weld.indexOf(record.data()), expected) << "width " << width << ", record " << n;
    }
    ASSERT_EQ(weld.size(), reference.size());
    for (const auto& [record, index] : reference) {
      EXPECT_EQ(std::vector<uint32_t>(weld.record(index), weld.record(index) + width), record);
    }
  }
}
