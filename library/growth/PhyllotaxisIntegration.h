// PhyllotaxisIntegration: the circumference of a surface of revolution as a function of the
// profile's parameter, for spacing elements by equal area. Every point of the profile spline
// gives one support point: its t and 2 pi times its distance from the z axis. Of two points
// with the same t the first counts. Integrating over t thus measures area in profile parameter,
// which is true area where t runs in proportion to arc length.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "curves/Integration.h"

namespace mv {

class Spline;

class PhyllotaxisIntegration : public mt::Integration {
 public:
  // profile may be null: the table stays empty and every integral is 0. Not kept.
  explicit PhyllotaxisIntegration(const Spline* profile);

  void reset() override;
  // To the last support point at or before x; to the end when x lies before the first or when
  // no support point lies after x.
  void seek(double x) override;
  bool next(double& x, double& y) override;

  size_t size() const { return table_.size(); }

 private:
  std::vector<std::pair<double, double>> table_;  // sorted by t
  size_t cursor_ = 0;
};

}  // namespace mv
