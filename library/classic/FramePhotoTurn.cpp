#include "classic/FramePhotoTurn.h"

#include <cmath>

#include "classic/PhotoTurn.h"
#include "classic/detail/QuarterTurn.h"
#include "core/MathConstants.h"

namespace mv {

namespace {

constexpr double c = kQuarterTurnCosine;

// The inverse quarter turns of the node's photo correction.
Matrix4 quarterTurnBack(int axis) {
  if (axis == 0) return Matrix4::fromRows({c, 0, 1}, {0, 1, 0}, {-1, 0, c}, {});
  if (axis == 1) return Matrix4::fromRows({1, 0, 0}, {0, c, -1}, {0, 1, c}, {});
  return Matrix4();
}

// (0, 0, 1) through m, divided by w where w is not 1 and not near 0.
Vector3 unitZImage(const Matrix4& m) {
  const Vector3 p = m.transformPoint({0, 0, 1});
  const double w = m.at(2, 3) + m.at(3, 3);
  return w != 1.0 && std::fabs(w) >= kZeroTolerance ? p / w : p;
}

Vector3 normalizedIfLong(const Vector3& v) {
  const double length = v.length();
  return length >= kZeroTolerance ? v / length : v;
}

}  // namespace

Matrix4 framePhotoTurn(const Matrix4& sceneFrame, int axis, double strength, double x) {
  if (std::fabs(strength) < kZeroTolerance) return Matrix4();
  const Matrix4 r = quarterTurnBack(axis);
  const Matrix4 n = r * sceneFrame;
  const Vector3 p = n.position();
  const Vector3 d = normalizedIfLong(unitZImage(n) - p);
  const double w = strength >= 0.0 ? 2.0 * x : 0.15 * x;
  Vector3 b = d + Vector3{0, 0, strength * w};
  Matrix4 turned = r;
  if (b != Vector3()) turnTowards(turned, n, p + normalizedIfLong(b));
  if (axis == 0) return r.inverse() * turned;
  if (axis == 1) return turned * r.inverse();
  return turned;
}

}  // namespace mv
