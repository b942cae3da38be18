#include "curves/CurveParamIntegration.h"

namespace mv {

// Position 0 is the first point, so the count of inner points at or before x is the index of
// the last support point at or before x.
void CurveParamIntegration::seek(double x) {
  position_ = 0;
  if (!curve_ || x <= 0.0) return;
  const int last = curve_->getPointCount() - 1;
  if (x >= 1.0) {
    position_ = static_cast<uint32_t>(last);
    return;
  }
  for (int index = 1; index < last && curve_->getPoint(index)->x <= x; ++index) ++position_;
}

bool CurveParamIntegration::next(double& x, double& y) {
  const CurvePoint* point = curve_ ? curve_->getPoint(static_cast<int>(position_)) : nullptr;
  if (!point) return false;
  x = point->x;
  y = point->y;
  ++position_;
  return true;
}

}  // namespace mv
