// MathConstants: the numbers that geometry code shares, defined once.
#pragma once

namespace mt {

constexpr double kPi = 3.14159265358979323846;

}  // namespace mt

namespace mv {
using mt::kPi;
}  // namespace mv
