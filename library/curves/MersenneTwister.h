// MersenneTwister: the library's one random generator, MT19937 in its first published form
// (seeded by the multiplicative sequence x[i] = x[i-1] * 69069). Deterministic: the same seed
// gives the same draws on every platform. Not synchronised.
#pragma once

#include <cstdint>

namespace mt {

class MersenneTwister {
 public:
  static constexpr uint32_t kDefaultSeed = 4357;

  explicit MersenneTwister(uint32_t seed = kDefaultSeed);

  void seed(uint32_t seed);
  // The next tempered 32-bit word.
  uint32_t nextWord();
  // The next draw in 0 to 1, both ends included.
  double next();

  // The generator behind the expression function "rnd": seeded once with the default seed and
  // never reseeded, so its values depend on how often it ran before.
  static MersenneTwister& shared();

 private:
  static constexpr int kStateSize = 624;

  void regenerate();

  uint32_t state_[kStateSize];
  int index_ = kStateSize;
};

}  // namespace mt

namespace mv {
using mt::MersenneTwister;
}  // namespace mv
