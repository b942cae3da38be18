// MatrixConversion: the crossing between host matrices and library matrices. The two differ by a
// swap of the y and z axes; a host matrix also keeps its axes as columns where the library keeps
// them as rows.
#pragma once

#include "core/Matrix4.h"
#include "core/Vector3.h"
#include "host/Matrix.h"

// The host matrix of a library matrix: axes and offset from rows 0 to 3, then G * H * G with G
// the axis swap.
Matrix toHostMatrix(const mv::Matrix4& matrix);
// The inverse of toHostMatrix.
mv::Matrix4 toLibraryMatrix(const Matrix& matrix);
// A host vector in library axes, and back: y and z change places.
mv::Vector3 toLibraryVector(const Vector& vector);
Vector toHostVector(const mv::Vector3& vector);
