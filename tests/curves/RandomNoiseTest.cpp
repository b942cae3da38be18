#include <gtest/gtest.h>

#include <cmath>

#include "curves/MersenneTwister.h"
#include "curves/ValueNoise.h"

// Reference words and noise values computed by an independent script written from the algorithm
// (69069 seeding, twist 0x9908B0DF, standard tempering).
TEST(MersenneTwister, firstDrawsOfDefaultSeedAreFixed) {
  mt::MersenneTwister generator;
  const uint32_t expected[] = {3510405877u, 4290933890u, 2191955339u,
                               564929546u,  152112058u,  4262624192u};
  for (uint32_t word : expected) EXPECT_EQ(generator.nextWord(), word);

  mt::MersenneTwister drawing(4357);
  EXPECT_DOUBLE_EQ(drawing.next(), 0.8173300600185361);
  EXPECT_DOUBLE_EQ(drawing.next(), 0.9990608997175147);
}

TEST(MersenneTwister, regeneratesEveryBlockAndReseedsToTheSameSequence) {
  mt::MersenneTwister generator;
  for (int i = 0; i < 624; ++i) generator.nextWord();
  EXPECT_EQ(generator.nextWord(), 2222118351u);  // first word of the second block
  for (int i = 625; i < 999; ++i) generator.nextWord();
  EXPECT_EQ(generator.nextWord(), 1309179303u);

  generator.seed(4357);
  EXPECT_EQ(generator.nextWord(), 3510405877u);
}

TEST(MersenneTwister, drawsStayInClosedUnitInterval) {
  mt::MersenneTwister generator(1);
  for (int i = 0; i < 5000; ++i) {
    const double d = generator.next();
    ASSERT_GE(d, 0.0);
    ASSERT_LE(d, 1.0);
  }
}

TEST(ValueNoise, tableComesFromItsOwnDefaultSeededGenerator) {
  const mt::ValueNoise& noise = mt::ValueNoise::shared();
  EXPECT_DOUBLE_EQ(noise.tableEntry(0), -0.6346601200370723);
  EXPECT_DOUBLE_EQ(noise.tableEntry(1), -0.9981217994350293);
  EXPECT_DOUBLE_EQ(noise.tableEntry(255), -0.37374363778479025);
}

TEST(ValueNoise, matchesReferenceValues) {
  const mt::ValueNoise& noise = mt::ValueNoise::shared();
  EXPECT_DOUBLE_EQ(noise.noise(0.0), -0.7255255398865615);
  EXPECT_DOUBLE_EQ(noise.noise(0.5), -0.7448215458387109);
  EXPECT_DOUBLE_EQ(noise.noise(3.25), 0.6536897371387219);
  EXPECT_DOUBLE_EQ(noise.noise(300.7), -0.021662816649572356);
}

TEST(ValueNoise, atWholeNumberIsMeanOfThreeNeighbouringEntries) {
  const mt::ValueNoise& noise = mt::ValueNoise::shared();
  // Weights at distance 0, 1, 1 are 1, 0.5, 0.5 (the entry two below has weight 0).
  for (int k : {1, 7, 100, 254}) {
    const double mean =
        (noise.tableEntry(k) + 0.5 * noise.tableEntry(k - 1) + 0.5 * noise.tableEntry(k + 1)) / 2.0;
    EXPECT_NEAR(noise.noise(k), mean, 1e-15) << k;
  }
}

TEST(ValueNoise, isPeriodicAboveOneAndConstantBelowMinusOne) {
  const mt::ValueNoise& noise = mt::ValueNoise::shared();
  for (double x : {1.5, 2.0, 17.3, 200.9})
    EXPECT_NEAR(noise.noise(x), noise.noise(x + 256.0), 1e-12);
  for (double x : {-1.5, -7.25, -1000.0}) EXPECT_DOUBLE_EQ(noise.noise(x), noise.tableEntry(0));
  EXPECT_TRUE(std::isnan(noise.noise(std::nan(""))));
}

TEST(ValueNoise, staysWithinUnitRangeAndLeavesSharedGeneratorAlone) {
  const mt::ValueNoise& noise = mt::ValueNoise::shared();
  mt::MersenneTwister before = mt::MersenneTwister::shared();
  for (double x = -3.0; x < 260.0; x += 0.173) {
    const double value = noise.noise(x);
    ASSERT_GE(value, -1.0);
    ASSERT_LE(value, 1.0);
  }
  EXPECT_EQ(mt::MersenneTwister::shared().nextWord(), before.nextWord());
}
