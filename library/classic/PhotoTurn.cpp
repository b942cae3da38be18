#include "classic/PhotoTurn.h"

#include <algorithm>
#include <cmath>

#include "classic/detail/QuarterTurn.h"
#include "core/MathConstants.h"

namespace mv {

namespace {

constexpr double c = kQuarterTurnCosine;

Vector3 normalizedIfLong(const Vector3& v) {
  const double length = v.length();
  return length >= kZeroTolerance ? v / length : v;
}

// The quarter turn that brings axis 0 or 1 to z, and its inverse; z itself needs none.
Matrix4 quarterTurn(int axis) {
  if (axis == 0) return Matrix4::fromRows({c, 0, -1}, {0, 1, 0}, {1, 0, c}, {});
  if (axis == 1) return Matrix4::fromRows({1, 0, 0}, {0, c, 1}, {0, -1, c}, {});
  return Matrix4();
}

Matrix4 inverseQuarterTurn(int axis) {
  if (axis == 0) return Matrix4::fromRows({c, 0, 1}, {0, 1, 0}, {-1, 0, c}, {});
  if (axis == 1) return Matrix4::fromRows({1, 0, 0}, {0, c, -1}, {0, 1, c}, {});
  return Matrix4();
}

// The light without its part along the axis row a of the frame.
Vector3 perpendicularLight(const Vector3& light, const Vector3& axisRow) {
  const Vector3 a = normalizedIfLong(axisRow);
  return normalizedIfLong(light - a * (light.dot(a) / light.length()));
}

}  // namespace

Matrix4 photoTurn(const Matrix4& matrix, int axis, double strength, int mode) {
  if (std::fabs(strength) < kZeroTolerance) return Matrix4();
  const int row = axis == 0 || axis == 1 ? axis : 2;
  const Matrix4 r = quarterTurn(row);
  const Matrix4 n = r * matrix;
  const Vector3 d = normalizedIfLong(n.row(2));
  Vector3 light{0, 0, strength < 0 ? -1.0 : 1.0};
  const double s = std::fabs(strength);
  if (mode == 1) light = perpendicularLight(light, n.row(row));
  Vector3 b = light * s + d * (1.0 - s);
  Matrix4 turned = r;
  if (b != Vector3()) {
    b = normalizedIfLong(b);
    turnTowards(turned, n, n.position() + b);
  }
  return inverseQuarterTurn(row) * turned;
}

void turnTowards(Matrix4& rotation, const Matrix4& frame, const Vector3& target) {
  const Matrix4 inverse = frame.inverse();
  Vector3 t = inverse.transformPoint(target);
  const double w = target.x * inverse.at(0, 3) + target.y * inverse.at(1, 3) +
                   target.z * inverse.at(2, 3) + inverse.at(3, 3);
  if (w != 1.0 && std::fabs(w) >= kZeroTolerance) t = t / w;
  t = t.normalized();
  const double rho = std::hypot(t.x, t.y);
  const Matrix4 tilt = Matrix4::rotationY(std::atan2(rho, t.z));
  if (rho == 0.0) {
    rotation = tilt * rotation;
    return;
  }
  const double azimuth = std::atan2(t.y, t.x);
  rotation = Matrix4::rotationZ(-azimuth) * tilt * Matrix4::rotationZ(azimuth) * rotation;
}

Matrix4 blendMatrices(const Matrix4& a, const Matrix4& b, double t) {
  t = std::clamp(t, 0.0, 1.0);
  Matrix4 result;
  for (int i = 0; i < 16; ++i) result.m[i] = (1.0 - t) * a.m[i] + t * b.m[i];
  return result;
}

}  // namespace mv
