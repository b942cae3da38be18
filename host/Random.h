// Random: the host's pseudo-random numbers, a 31-bit linear congruential generator:
// seed = (seed * 69069 + 69069) & 0x7fffffff, then Get01 = seed / 2147483649.
#pragma once

#include "host/HostTypes.h"

class Random {
 public:
  void Init(UInt32 seed) { seed_ = seed; }
  // In [0, 1).
  Float Get01() {
    seed_ = (seed_ * 69069u + 69069u) & 0x7fffffffu;
    return seed_ / 2147483649.0;
  }
  // In [-1, 1).
  Float Get11() { return 2.0 * Get01() - 1.0; }
  UInt32 GetSeed() const { return seed_; }

 private:
  UInt32 seed_ = 0;
};
