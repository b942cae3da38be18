// PhotoTurn: the matrix helpers of the photo correction, by which a classic node leans one of its
// axes toward a fixed light direction (+z) in the frame of the whole scene. The tree and horn
// use turnTowards and blendMatrices directly as well.
#pragma once

#include "core/Matrix4.h"
#include "core/Vector3.h"

namespace mv {

// The correction Q for the frame M: Q * M is the turned frame. axis 0 leans x, 1 leans y, any
// other value z; strength from -1 (away from the light) to 1; mode 1 first makes the light
// perpendicular to the axis row.
Matrix4 photoTurn(const Matrix4& matrix, int axis, double strength, int mode);

// Changes rotation so that the z axis of frame turns onto the world point target.
void turnTowards(Matrix4& rotation, const Matrix4& frame, const Vector3& target);

// (1 - t) a + t b over all sixteen elements, t clamped to 0 to 1. It does not keep a rotation
// orthogonal: it interpolates nearby frames.
Matrix4 blendMatrices(const Matrix4& a, const Matrix4& b, double t);

}  // namespace mv
