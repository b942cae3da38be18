// Shared checks of geometric values, so that every test compares vectors and matrices alike.
#pragma once

#include <gtest/gtest.h>

#include "core/Matrix4.h"
#include "core/Vector3.h"

inline void expectNear(const mv::Vector3& actual, const mv::Vector3& expected,
                       double tolerance = 1e-12) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
  EXPECT_NEAR(actual.z, expected.z, tolerance);
}

inline void expectNear(const mv::Matrix4& actual, const mv::Matrix4& expected,
                       double tolerance = 1e-12) {
  for (int i = 0; i < 16; ++i) EXPECT_NEAR(actual.m[i], expected.m[i], tolerance) << "entry " << i;
}

// Rows 0 to 2 unit length and mutually perpendicular, right-handed.
inline void expectOrthonormalFrame(const mv::Matrix4& frame, double tolerance = 1e-9) {
  const mv::Vector3 x = frame.row(0), y = frame.row(1), z = frame.row(2);
  EXPECT_NEAR(x.length(), 1.0, tolerance);
  EXPECT_NEAR(y.length(), 1.0, tolerance);
  EXPECT_NEAR(z.length(), 1.0, tolerance);
  EXPECT_NEAR(x.dot(y), 0.0, tolerance);
  EXPECT_NEAR(y.dot(z), 0.0, tolerance);
  EXPECT_NEAR(z.dot(x), 0.0, tolerance);
  expectNear(x.cross(y), z, tolerance);
}

// An orthonormal frame whose tangent row points the way of direction.
inline void expectFrameAlong(const mv::Matrix4& frame, const mv::Vector3& direction,
                             double tolerance = 1e-9) {
  expectOrthonormalFrame(frame, tolerance);
  expectNear(frame.row(2), direction.normalized(), tolerance);
}
