// CurveParamIntegration: integration over the polyline through a curve's points (first at x 0,
// inner points, last at x 1). Control points and the expression play no part. The curve is not
// owned and must outlive the integration; a null curve integrates to 0.
#pragma once

#include <cstdint>

#include "curves/CurveParam.h"
#include "curves/Integration.h"

namespace mv {

class CurveParamIntegration : public mt::Integration {
 public:
  explicit CurveParamIntegration(const CurveParam* curve) : curve_(curve) {}

  void reset() override { position_ = 0; }
  void seek(double x) override;
  bool next(double& x, double& y) override;

 private:
  uint32_t position_ = 0;
  const CurveParam* curve_;
};

}  // namespace mv
