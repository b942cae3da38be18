#include <gtest/gtest.h>

#include "host/Random.h"

// The numbers below were worked out by hand from the recurrence
// seed = (seed * 69069 + 69069) mod 2^31, value = seed / 2147483649.
TEST(Random, seed84564GivesTheRecurrencesSequence) {
  const double states[] = {1545852689.0, 1907434346.0, 756075439.0,
                           1014696944.0, 974441725.0,  1578044774.0};
  Random random;
  random.Init(84564);
  for (double state : states) EXPECT_EQ(random.Get01(), state / 2147483649.0);
}

TEST(Random, get11IsTwiceGet01LessOne) {
  Random random;
  random.Init(84564);
  EXPECT_DOUBLE_EQ(random.Get11(), 2.0 * 1545852689.0 / 2147483649.0 - 1.0);
  EXPECT_DOUBLE_EQ(random.Get11(), 2.0 * 1907434346.0 / 2147483649.0 - 1.0);
}

TEST(Random, initStartsTheSequenceOver) {
  Random random;
  random.Init(100);
  const double first = random.Get01();
  random.Get01();
  random.Init(100);
  EXPECT_EQ(random.Get01(), first);
}

// The largest state stays below the divisor, so Get01 never reaches 1 and Get11 never 1.
TEST(Random, valuesStayInsideTheirRanges) {
  Random random;
  random.Init(0x7fffffff);
  for (int k = 0; k < 100000; ++k) {
    const double value = random.Get01();
    ASSERT_GE(value, 0.0);
    ASSERT_LT(value, 1.0);
  }
}
