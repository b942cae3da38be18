#include "source/CurveScreen.h"

#include <cmath>

namespace {

// Far outside any area, yet safe to add a few pixels to.
constexpr double kFar = 1e6;

}  // namespace

CurveScreen::CurveScreen(int32_t width, int32_t height, int32_t left, int32_t top, int32_t right,
                         int32_t bottom, double minimum, double maximum)
    : left_(left),
      top_(top),
      bottom_(bottom),
      innerWidth_(width - left - right),
      innerHeight_(height - top - bottom),
      minimum_(minimum),
      maximum_(maximum) {}

int32_t CurveScreen::toPixel(double value) {
  if (std::isnan(value)) return static_cast<int32_t>(-kFar);
  return static_cast<int32_t>(std::fmax(-kFar, std::fmin(kFar, value)));
}

int32_t CurveScreen::toScreenX(double x) const { return toPixel(left_ + x * (innerWidth_ - 1)); }

// The height used here is one bottom edge short of the inner height: the curve's lowest value
// sits that far above the lower edge.
int32_t CurveScreen::toScreenY(double y) const {
  const double t = (y - minimum_) / (maximum_ - minimum_);
  return toPixel(top_ + (1.0 - t) * (innerHeight_ - 1 - bottom_));
}

double CurveScreen::fromScreenX(int32_t px) const {
  return static_cast<double>(px - left_) / innerWidth_;
}

double CurveScreen::fromScreenY(int32_t py) const {
  return (1.0 - static_cast<double>(py - top_) / innerHeight_) * (maximum_ - minimum_) + minimum_;
}
