// Noise: a smooth one-dimensional pseudo-random function with values in -1 to 1.
#pragma once

namespace mt {

class Noise {
 public:
  virtual ~Noise() = default;
  virtual double noise(double x) const = 0;
};

}  // namespace mt
