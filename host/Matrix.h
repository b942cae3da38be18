// Matrix: a host transform, an offset and three axis vectors. A point p maps to
// off + v1 * p.x + v2 * p.y + v3 * p.z. Products act from the right first: (A * B) * p is
// A * (B * p), so a global matrix is the parent's global matrix times the local one.
#pragma once

#include "host/Vector.h"

struct Matrix {
  Vector off;
  Vector v1{1.0, 0.0, 0.0};
  Vector v2{0.0, 1.0, 0.0};
  Vector v3{0.0, 0.0, 1.0};

  constexpr Matrix() = default;
  constexpr Matrix(const Vector& off, const Vector& v1, const Vector& v2, const Vector& v3)
      : off(off), v1(v1), v2(v2), v3(v3) {}

  // The image of a point.
  constexpr Vector operator*(const Vector& p) const { return off + TransformVector(p); }
  // The image of a direction: the offset does not act.
  constexpr Vector TransformVector(const Vector& d) const { return v1 * d.x + v2 * d.y + v3 * d.z; }
  constexpr Matrix operator*(const Matrix& m) const {
    return {*this * m.off, TransformVector(m.v1), TransformVector(m.v2), TransformVector(m.v3)};
  }
  constexpr bool operator==(const Matrix& o) const {
    return off == o.off && v1 == o.v1 && v2 == o.v2 && v3 == o.v3;
  }
  constexpr bool operator!=(const Matrix& o) const { return !(*this == o); }
};

// The inverse of an affine matrix; a singular matrix gives the identity.
Matrix Invert(const Matrix& m);
// Rotation about the x axis: the y axis turns towards -z for a positive angle, so that
// MatrixRotX(-pi/2) * MatrixScale(1, 1, -1) maps (x, y, z) to (x, z, y).
Matrix MatrixRotX(Float angle);
// Rotation about the y axis: the z axis turns towards -x for a positive angle.
Matrix MatrixRotY(Float angle);
// Rotation about the z axis: the x axis turns towards -y for a positive angle.
Matrix MatrixRotZ(Float angle);
Matrix MatrixScale(const Vector& scale);
Matrix MatrixMove(const Vector& offset);
// Heading (about y), pitch (about x), bank (about z): HPBToMatrix(hpb) is
// MatrixRotY(h) * MatrixRotX(p) * MatrixRotZ(b); MatrixToHPB gives these angles back from a
// matrix whose axes may be scaled.
Matrix HPBToMatrix(const Vector& hpb);
Vector MatrixToHPB(const Matrix& m);
