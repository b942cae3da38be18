// Random: the host's small random generator, a linear congruential recurrence on a 31-bit state.
// Plug-ins seed it to get the same sequence on every run and every platform.
#pragma once

#include "host/HostTypes.h"

class Random {
 public:
  // The sequence starts over from seed.
  void Init(UInt32 seed) { seed_ = seed; }
  // The next number in [0, 1).
  Float Get01() {
    next();
    return Float(seed_) / 2147483649.0;
  }
  // The next number in [-1, 1).
  Float Get11() { return 2.0 * Get01() - 1.0; }

 private:
  // Unsigned arithmetic keeps the low 31 bits exact where a signed product would overflow.
  void next() { seed_ = (seed_ * 69069u + 69069u) & 0x7fffffffu; }

  UInt32 seed_ = 0;
};
