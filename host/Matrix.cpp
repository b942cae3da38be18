#include "host/Matrix.h"

#include <cmath>

Matrix Invert(const Matrix& m) {
  Float det = Dot(m.v1, Cross(m.v2, m.v3));
  if (std::fabs(det) < 1e-300) return Matrix();
  // Rows of the inverse of the 3x3 block are the cross products of its columns.
  Vector r1 = Cross(m.v2, m.v3) / det;
  Vector r2 = Cross(m.v3, m.v1) / det;
  Vector r3 = Cross(m.v1, m.v2) / det;
  Matrix inverse({}, {r1.x, r2.x, r3.x}, {r1.y, r2.y, r3.y}, {r1.z, r2.z, r3.z});
  inverse.off = -inverse.TransformVector(m.off);
  return inverse;
}

Matrix MatrixRotX(Float angle) {
  Float c = std::cos(angle), s = std::sin(angle);
  return Matrix({}, {1.0, 0.0, 0.0}, {0.0, c, -s}, {0.0, s, c});
}

Matrix MatrixRotY(Float angle) {
  Float c = std::cos(angle), s = std::sin(angle);
  return Matrix({}, {c, 0.0, s}, {0.0, 1.0, 0.0}, {-s, 0.0, c});
}

Matrix MatrixRotZ(Float angle) {
  Float c = std::cos(angle), s = std::sin(angle);
  return Matrix({}, {c, -s, 0.0}, {s, c, 0.0}, {0.0, 0.0, 1.0});
}

Matrix MatrixScale(const Vector& scale) {
  return Matrix({}, {scale.x, 0.0, 0.0}, {0.0, scale.y, 0.0}, {0.0, 0.0, scale.z});
}

Matrix MatrixMove(const Vector& offset) { return Matrix(offset, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}); }

Matrix HPBToMatrix(const Vector& hpb) {
  return MatrixRotY(hpb.x) * MatrixRotX(hpb.y) * MatrixRotZ(hpb.z);
}

Vector MatrixToHPB(const Matrix& m) {
  Vector x = m.v1.GetNormalized(), y = m.v2.GetNormalized(), z = m.v3.GetNormalized();
  // The z axis of RotY(h) * RotX(p) * RotZ(b) is (-cos p sin h, sin p, cos p cos h); the y
  // components of its x and y axes are -sin b cos p and cos b cos p.
  Float pitch = std::asin(std::fmax(-1.0, std::fmin(1.0, z.y)));
  if (std::fabs(z.y) < 1.0 - 1e-12) {
    return {std::atan2(-z.x, z.z), pitch, std::atan2(-x.y, y.y)};
  }
  // Gimbal lock: the bank is folded into the heading.
  return {std::atan2(x.z, x.x), pitch, 0.0};
}
