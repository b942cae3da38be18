#include "source/MatrixConversion.h"

#include "core/MathConstants.h"

namespace {

// Maps (x, y, z) to (x, z, y) and is its own inverse.
const Matrix& axisSwap() {
  static const Matrix swap = MatrixRotX(-mt::kPi / 2.0) * MatrixScale(Vector(1.0, 1.0, -1.0));
  return swap;
}

Vector hostVector(const mv::Vector3& vector) { return {vector.x, vector.y, vector.z}; }

mv::Vector3 libraryVector(const Vector& vector) { return {vector.x, vector.y, vector.z}; }

}  // namespace

Matrix toHostMatrix(const mv::Matrix4& matrix) {
  const Matrix host(hostVector(matrix.row(3)), hostVector(matrix.row(0)), hostVector(matrix.row(1)),
                    hostVector(matrix.row(2)));
  return axisSwap() * host * axisSwap();
}

mv::Matrix4 toLibraryMatrix(const Matrix& matrix) {
  const Matrix swapped = axisSwap() * matrix * axisSwap();
  return mv::Matrix4::fromRows(libraryVector(swapped.v1), libraryVector(swapped.v2),
                               libraryVector(swapped.v3), libraryVector(swapped.off));
}

mv::Vector3 toLibraryVector(const Vector& vector) { return {vector.x, vector.z, vector.y}; }

Vector toHostVector(const mv::Vector3& vector) { return {vector.x, vector.z, vector.y}; }
