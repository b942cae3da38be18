#include "core/Matrix4.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace mt {

Matrix4::Matrix4() : m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

Matrix4 Matrix4::fromRows(const Vector3& xAxis, const Vector3& yAxis, const Vector3& zAxis,
                          const Vector3& position) {
  Matrix4 result;
  result.setRow(0, xAxis);
  result.setRow(1, yAxis);
  result.setRow(2, zAxis);
  result.setRow(3, position);
  return result;
}

Matrix4 Matrix4::rotationX(double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return fromRows({1, 0, 0}, {0, c, s}, {0, -s, c}, {0, 0, 0});
}

Matrix4 Matrix4::rotationY(double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return fromRows({c, 0, -s}, {0, 1, 0}, {s, 0, c}, {0, 0, 0});
}

Matrix4 Matrix4::rotationZ(double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return fromRows({c, s, 0}, {-s, c, 0}, {0, 0, 1}, {0, 0, 0});
}

Matrix4 Matrix4::scaling(const Vector3& factors) {
  return fromRows({factors.x, 0, 0}, {0, factors.y, 0}, {0, 0, factors.z}, {0, 0, 0});
}

Matrix4 Matrix4::translation(const Vector3& offset) {
  return fromRows({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, offset);
}

void Matrix4::setRow(int index, const Vector3& value) {
  at(index, 0) = value.x;
  at(index, 1) = value.y;
  at(index, 2) = value.z;
}

Matrix4 Matrix4::operator*(const Matrix4& other) const {
  Matrix4 result;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) sum += at(r, k) * other.at(k, c);
      result.at(r, c) = sum;
    }
  }
  return result;
}

bool Matrix4::operator==(const Matrix4& other) const {
  return std::equal(std::begin(m), std::end(m), std::begin(other.m));
}

Vector3 Matrix4::transformPoint(const Vector3& p) const {
  return {p.x * m[0] + p.y * m[4] + p.z * m[8] + m[12],
          p.x * m[1] + p.y * m[5] + p.z * m[9] + m[13],
          p.x * m[2] + p.y * m[6] + p.z * m[10] + m[14]};
}

Vector3 Matrix4::transformVector(const Vector3& v) const {
  return {v.x * m[0] + v.y * m[4] + v.z * m[8], v.x * m[1] + v.y * m[5] + v.z * m[9],
          v.x * m[2] + v.y * m[6] + v.z * m[10]};
}

Matrix4& Matrix4::rotateX(double angle) { return *this = rotationX(angle) * *this; }
Matrix4& Matrix4::rotateY(double angle) { return *this = rotationY(angle) * *this; }
Matrix4& Matrix4::rotateZ(double angle) { return *this = rotationZ(angle) * *this; }
Matrix4& Matrix4::scale(const Vector3& factors) { return *this = scaling(factors) * *this; }
Matrix4& Matrix4::translate(const Vector3& offset) { return *this = translation(offset) * *this; }

Matrix4 Matrix4::inverse() const {
  // Gauss-Jordan elimination with partial pivoting on [this | I].
  double a[4][8];
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      a[r][c] = at(r, c);
      a[r][c + 4] = r == c ? 1.0 : 0.0;
    }
  }
  for (int col = 0; col < 4; ++col) {
    int pivot = col;
    for (int r = col + 1; r < 4; ++r) {
      if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
    }
    if (std::fabs(a[pivot][col]) < 1e-300) return Matrix4();
    std::swap(a[col], a[pivot]);
    const double scaleFactor = 1.0 / a[col][col];
    for (double& value : a[col]) value *= scaleFactor;
    for (int r = 0; r < 4; ++r) {
      if (r == col) continue;
      const double factor = a[r][col];
      for (int c = 0; c < 8; ++c) a[r][c] -= factor * a[col][c];
    }
  }
  Matrix4 result;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) result.at(r, c) = a[r][c + 4];
  }
  return result;
}

}  // namespace mt
