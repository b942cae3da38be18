#include "curves/MersenneTwister.h"

namespace mt {

namespace {

constexpr int kShift = 397;
constexpr uint32_t kTwist = 0x9908B0DFu;
constexpr uint32_t kUpperBit = 0x80000000u;
constexpr uint32_t kLowerBits = 0x7FFFFFFFu;

}  // namespace

MersenneTwister::MersenneTwister(uint32_t seedValue) { seed(seedValue); }

void MersenneTwister::seed(uint32_t seedValue) {
  state_[0] = seedValue;
  for (int i = 1; i < kStateSize; ++i) state_[i] = state_[i - 1] * 69069u;
  index_ = kStateSize;
}

// The whole block at once, each word mixing its neighbour and the word kShift ahead.
void MersenneTwister::regenerate() {
  for (int i = 0; i < kStateSize; ++i) {
    const uint32_t y = (state_[i] & kUpperBit) | (state_[(i + 1) % kStateSize] & kLowerBits);
    state_[i] = state_[(i + kShift) % kStateSize] ^ (y >> 1) ^ ((y & 1u) ? kTwist : 0u);
  }
  index_ = 0;
}

uint32_t MersenneTwister::nextWord() {
  if (index_ >= kStateSize) regenerate();
  uint32_t y = state_[index_++];
  y ^= y >> 11;
  y ^= (y << 7) & 0x9D2C5680u;
  y ^= (y << 15) & 0xEFC60000u;
  y ^= y >> 18;
  return y;
}

double MersenneTwister::next() { return static_cast<double>(nextWord()) / 4294967295.0; }

MersenneTwister& MersenneTwister::shared() {
  static MersenneTwister generator;
  return generator;
}

}  // namespace mt
