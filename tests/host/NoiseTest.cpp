#include "host/Noise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

TEST(Noise, isOneHalfAtLatticePoints) {
  for (const Vector& p : {Vector(0, 0, 0), Vector(3, -7, 12), Vector(1000, 1, -255)}) {
    EXPECT_DOUBLE_EQ(Noise(p), 0.5);
  }
}

TEST(Noise, staysInsideZeroToOneAndVaries) {
  std::set<double> seen;
  for (int i = 0; i < 4000; ++i) {
    const Vector p(i * 0.37, i * 0.11 - 40, std::sin(i) * 9);
    const double value = Noise(p);
    ASSERT_GE(value, 0.0);
    ASSERT_LE(value, 1.0);
    seen.insert(std::round(value * 20));
  }
  EXPECT_GE(seen.size(), 8u);  // not a constant or a few steps
}

// Gradient noise is smooth: a step of 1e-4 moves it by at most a few times that.
TEST(Noise, isContinuous) {
  for (int i = 0; i < 1000; ++i) {
    const Vector p(i * 0.173, 5 - i * 0.071, i * 0.029);
    EXPECT_LT(std::abs(Noise(p + Vector(1e-4, 1e-4, 1e-4)) - Noise(p)), 1e-3) << i;
  }
}

TEST(Noise, farAndBrokenInputGiveFiniteValues) {
  EXPECT_TRUE(std::isfinite(Noise(Vector(1e300, -1e300, 3.5))));
  EXPECT_EQ(Noise(Vector(std::nan(""), 0, 0)), 0.5);
  EXPECT_EQ(Noise(Vector(INFINITY, 0, 0)), 0.5);
}
