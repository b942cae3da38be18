// Matrix4: a 4x4 transform of row vectors. Rows 0 to 2 are the images of the x, y and z axes,
// row 3 is the translation; a point (x, y, z, 1) is multiplied from the left of the matrix.
//
// rotateX, rotateZ, scale and translate multiply from the left (M becomes R * M), so that the
// newest transform acts first on a point, in the local space of what stands so far.
#pragma once

#include "core/Vector3.h"

namespace mt {

class Matrix4 {
 public:
  // Row-major storage: m[row * 4 + column].
  double m[16];

  Matrix4();  // the identity
  static Matrix4 identity() { return Matrix4(); }
  static Matrix4 fromRows(const Vector3& xAxis, const Vector3& yAxis, const Vector3& zAxis,
                          const Vector3& position);
  static Matrix4 rotationX(double angle);
  static Matrix4 rotationY(double angle);
  static Matrix4 rotationZ(double angle);
  static Matrix4 scaling(const Vector3& factors);
  static Matrix4 translation(const Vector3& offset);

  double& at(int row, int column) { return m[row * 4 + column]; }
  double at(int row, int column) const { return m[row * 4 + column]; }
  Vector3 row(int index) const { return {at(index, 0), at(index, 1), at(index, 2)}; }
  void setRow(int index, const Vector3& value);
  Vector3 position() const { return row(3); }

  // Matrix product this * other: a point is carried by this first, then by other.
  Matrix4 operator*(const Matrix4& other) const;
  bool operator==(const Matrix4& other) const;
  bool operator!=(const Matrix4& other) const { return !(*this == other); }

  // (x, y, z, 1) times the matrix; the fourth component is not divided out.
  Vector3 transformPoint(const Vector3& point) const;
  // (x, y, z, 0) times the matrix: directions ignore the translation.
  Vector3 transformVector(const Vector3& vector) const;

  Matrix4& rotateX(double angle);
  Matrix4& rotateY(double angle);
  Matrix4& rotateZ(double angle);
  Matrix4& scale(const Vector3& factors);
  Matrix4& translate(const Vector3& offset);

  // Inverse of a general matrix; the identity when the matrix is singular.
  Matrix4 inverse() const;
};

}  // namespace mt

namespace mv {
using mt::Matrix4;
}  // namespace mv
