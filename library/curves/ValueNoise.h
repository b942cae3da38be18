// ValueNoise: the noise behind the expression function "noise". A weighted mean of four lattice
// values around x with a raised-cosine kernel of half-width 2; the 256 lattice values come from a
// generator of their own, so the function is the same in every run and never touches the
// generator of "rnd". Period 256 for positive x; constant (the first table entry) below -1.
#pragma once

#include "curves/Noise.h"

namespace mt {

class ValueNoise : public Noise {
 public:
  static constexpr int kTableSize = 256;

  ValueNoise();
  double noise(double x) const override;
  double tableEntry(int index) const { return table_[index]; }

  // The one instance of the program, filled on first use.
  static const ValueNoise& shared();

 private:
  double table_[kTableSize];
};

}  // namespace mt
