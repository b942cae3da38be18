#include <gtest/gtest.h>

#include <cmath>

#include "core/Matrix4.h"
#include "support/GeometryExpectations.h"

using mv::Matrix4;
using mv::Vector3;

TEST(Matrix4, rowsAreAxisImagesAndTranslation) {
  const Matrix4 m = Matrix4::fromRows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {5, 6, 7});
  expectNear(m.transformPoint({1, 0, 0}), {5, 7, 7});
  expectNear(m.transformPoint({0, 1, 0}), {4, 6, 7});
  expectNear(m.transformVector({0, 1, 0}), {-1, 0, 0});
}

TEST(Matrix4, rotateZTurnsXTowardY) {
  Matrix4 m;
  m.rotateZ(M_PI / 2);
  expectNear(m.row(0), {0, 1, 0});
  expectNear(m.row(1), {-1, 0, 0});
  expectNear(m.transformPoint({1, 0, 0}), {0, 1, 0});
}

TEST(Matrix4, rotateXTurnsYTowardZ) {
  Matrix4 m;
  m.rotateX(M_PI / 2);
  expectNear(m.transformPoint({0, 1, 0}), {0, 0, 1});
  expectNear(m.transformPoint({0, 0, 1}), {0, -1, 0});
}

// The point is turned first, then carried by the translation that stood before.
TEST(Matrix4, leftMultiplicationActsFirst) {
  Matrix4 m = Matrix4::translation({10, 0, 0});
  m.rotateZ(M_PI / 2);
  expectNear(m.transformPoint({1, 0, 0}), {10, 1, 0});

  Matrix4 n;
  n.rotateZ(M_PI / 2);
  n.translate({10, 0, 0});
  expectNear(n.transformPoint({1, 0, 0}), {0, 11, 0});
}

TEST(Matrix4, pointTimesProductIsCarriedByLeftFactorFirst) {
  const Matrix4 a = Matrix4::rotationZ(0.3);
  const Matrix4 b = Matrix4::translation({1, 2, 3});
  const Vector3 p{0.5, -2, 4};
  expectNear((a * b).transformPoint(p), b.transformPoint(a.transformPoint(p)));
  expectNear((b * a).transformPoint(p), a.transformPoint(b.transformPoint(p)));
}

TEST(Matrix4, scaleFromLeftScalesLocalSpace) {
  Matrix4 m = Matrix4::translation({1, 0, 0});
  m.scale({2, 3, 4});
  expectNear(m.transformPoint({1, 1, 1}), {3, 3, 4});
}

TEST(Matrix4, rotationsAreOrthonormalAndInverseUndoes) {
  Matrix4 m;
  m.rotateX(0.7).rotateZ(-1.3).rotateY(2.1).translate({3, -4, 5});
  expectOrthonormalFrame(m);
  expectNear(m * m.inverse(), Matrix4(), 1e-12);
  expectNear(Matrix4::scaling({0, 1, 1}).inverse(), Matrix4());  // singular: identity
}
