#include "growth/PhyllotaxisIntegration.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/MathConstants.h"
#include "geometry/Spline.h"

namespace mv {
namespace {}  // namespace

PhyllotaxisIntegration::PhyllotaxisIntegration(const Spline* profile) {
  if (!profile) return;
  std::map<double, double> circumference;  // insert keeps the first of equal keys
  const uint32_t count = profile->getPointCount();
  for (uint32_t i = 0; i < count; ++i) {
    double t = 0.0;
    Vector3 p;
    if (!profile->getPoint(i, t, p) || std::isnan(t)) continue;  // NaN would break the order
    circumference.emplace(t, kTwoPi * std::sqrt(p.x * p.x + p.y * p.y));
  }
  table_.assign(circumference.begin(), circumference.end());
}

void PhyllotaxisIntegration::reset() { cursor_ = 0; }

void PhyllotaxisIntegration::seek(double x) {
  const auto above = std::upper_bound(
      table_.begin(), table_.end(), x,
      [](double value, const std::pair<double, double>& entry) { return value < entry.first; });
  const bool inside = above != table_.begin() && above != table_.end();
  cursor_ = inside ? static_cast<size_t>(above - table_.begin()) - 1 : table_.size();
}

bool PhyllotaxisIntegration::next(double& x, double& y) {
  if (cursor_ >= table_.size()) return false;
  x = table_[cursor_].first;
  y = table_[cursor_].second;
  ++cursor_;
  return true;
}

}  // namespace mv
