#include "curves/ValueNoise.h"

#include <cmath>

#include "core/MathConstants.h"
#include "curves/MersenneTwister.h"

namespace mt {

namespace {

// Negative lattice points all read the first entry.
int tableIndex(double k) {
  const double wrapped = std::fmod(k, static_cast<double>(ValueNoise::kTableSize));
  return wrapped >= 0.0 ? static_cast<int>(wrapped) : 0;  // NaN lands at 0 too
}

}  // namespace

ValueNoise::ValueNoise() {
  MersenneTwister generator(MersenneTwister::kDefaultSeed);
  for (double& entry : table_) entry = 1.0 - 2.0 * generator.next();
}

double ValueNoise::noise(double x) const {
  const double base = std::floor(x) - 1.0;
  double weightSum = 0.0;
  double valueSum = 0.0;
  for (int step = 0; step < 4; ++step) {
    const double k = base + step;
    const double d = std::fabs(k - x);
    const double w = d >= 2.0 ? 0.0 : (std::cos(d * kHalfPi) + 1.0) / 2.0;
    weightSum += w;
    valueSum += w * table_[tableIndex(k)];
  }
  return valueSum / weightSum;
}

const ValueNoise& ValueNoise::shared() {
  static const ValueNoise instance;
  return instance;
}

}  // namespace mt
