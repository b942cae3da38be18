// MathConstants: the numbers that geometry code shares, defined once: pi and its fractions, and
// the tolerances below which a value counts as zero.
#pragma once

namespace mt {

constexpr double kPi = 3.14159265358979323846;
constexpr double kHalfPi = kPi / 2.0;
constexpr double kTwoPi = 2.0 * kPi;

// Lengths, angles and factors of the nodes at or below this count as zero.
constexpr double kZeroTolerance = 1e-8;
// An integral (an area under a curve) at or below this counts as zero.
constexpr double kIntegralTolerance = 1e-6;

}  // namespace mt

namespace mv {
using mt::kHalfPi;
using mt::kIntegralTolerance;
using mt::kPi;
using mt::kTwoPi;
using mt::kZeroTolerance;
}  // namespace mv
