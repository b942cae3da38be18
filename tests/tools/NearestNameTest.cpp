#include <gtest/gtest.h>

#include "console/NearestName.h"

TEST(NearestName, editDistanceCountsInsertionsDeletionsAndSubstitutions) {
  struct Case {
    const char* a;
    const char* b;
    std::size_t distance;
  };
  const Case cases[] = {{"", "", 0},
                        {"render", "render", 0},
                        {"rendr", "render", 1},
                        {"rnder", "render", 1},
                        {"rendre", "render", 2},
                        {"", "demo", 4},
                        {"kitten", "sitting", 3}};
  for (const Case& c : cases) {
    EXPECT_EQ(editDistance(c.a, c.b), c.distance) << c.a << " " << c.b;
    EXPECT_EQ(editDistance(c.b, c.a), c.distance) << c.b << " " << c.a;
  }
}

TEST(NearestName, picksTheClosestAndTheFirstOfEquals) {
  const std::vector<std::string> names = {"curve", "demo", "info", "render"};
  EXPECT_EQ(nearestName("rendr", names), "render");
  EXPECT_EQ(nearestName("cruve", names), "curve");
  EXPECT_EQ(nearestName("dem", names), "demo");
  EXPECT_EQ(nearestName("zzzz", names), "demo");  // demo and info are both four edits away
  EXPECT_EQ(nearestName("x", {}), "");
}
