// MvrTriple: a scene-file value with the two limits that the user interface offered for it.
#pragma once

namespace mv {

struct MvrTriple {
  double value = 0.0;
  double lower = 0.0;
  double upper = 0.0;

  MvrTriple() = default;
  MvrTriple(double valueNumber, double lowerNumber, double upperNumber)
      : value(valueNumber), lower(lowerNumber), upper(upperNumber) {}
};

}  // namespace mv
