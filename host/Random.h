// Random: the host's small random generator, a linear congruential recurrence on a 31-bit state.
// Plug-ins seed it to get the same sequence on every run and every platform.
#pragma once

#include <cstdint>

class Random {
 public:
  // The sequence starts over from seed.
  void Init(uint32_t seed) { seed_ = seed; }
  // The next number in [0, 1).
  double Get01() {
    next();
    return double(seed_) / 2147483649.0;
  }
  // The next number in [-1, 1).
  double Get11() { return 2.0 * Get01() - 1.0; }

 private:
  // Unsigned arithmetic keeps the low 31 bits exact where a signed product would overflow.
  void next() { seed_ = (seed_ * 69069u + 69069u) & 0x7fffffffu; }

  uint32_t seed_ = 0;
};
