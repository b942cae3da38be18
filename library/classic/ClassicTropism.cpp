#include "classic/ClassicTropism.h"

#include <algorithm>

#include "classic/PhotoTurn.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

double tropismValue(const CurveParam& curve, double u, double multiplier) {
  return std::clamp(curve.evaluate(u), 0.0, 1.0) * multiplier;
}

}  // namespace

void applyTropism(const CurveParam& phototropism, const CurveParam& gravitropism,
                  std::vector<TreeFrame>& frames, const Matrix4& sceneFrame, double growth,
                  double multiplier) {
  if (frames.empty()) return;
  std::vector<Matrix4> relative(frames.size());
  relative[0] = frames[0].matrix;
  for (size_t i = 1; i < frames.size(); ++i) {
    relative[i] = frames[i].matrix * frames[i - 1].matrix.inverse();
  }
  Matrix4 base = sceneFrame;
  for (size_t i = 0; i < frames.size(); ++i) {
    const Matrix4 current = relative[i] * base;
    const double up = tropismValue(phototropism, frames[i].x / growth, multiplier);
    const double down = tropismValue(gravitropism, frames[i].x / growth, multiplier);
    if (up != 0.0 || down != 0.0) {
      Vector3 direction = current.row(2).normalized();
      const double step = relative[i].position().length();
      direction.z += up * step - down * step;
      if (direction != Vector3()) {
        turnTowards(relative[i], current, current.position() + direction.normalized());
      }
    }
    base = relative[i] * base;
  }
  frames[0].matrix = relative[0];
  for (size_t i = 1; i < frames.size(); ++i) {
    frames[i].matrix = relative[i] * frames[i - 1].matrix;
  }
}

}  // namespace mv
