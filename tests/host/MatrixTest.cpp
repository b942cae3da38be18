#include "host/Matrix.h"

#include <gtest/gtest.h>

#include "core/MathConstants.h"

namespace {

void expectNear(const Vector& actual, const Vector& expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-12);
  EXPECT_NEAR(actual.y, expected.y, 1e-12);
  EXPECT_NEAR(actual.z, expected.z, 1e-12);
}

const Matrix kAxisSwap = MatrixRotX(-mt::kPi / 2) * MatrixScale(Vector(1, 1, -1));

TEST(Matrix, AxisSwapMapsYToZAndIsItsOwnInverse) {
  expectNear(kAxisSwap * Vector(1, 2, 3), Vector(1, 3, 2));
  Matrix twice = kAxisSwap * kAxisSwap;
  for (const Vector& p : {Vector(1, 2, 3), Vector(-4, 0.5, 7)}) expectNear(twice * p, p);
}

TEST(Matrix, ProductActsRightFactorFirst) {
  Matrix move = MatrixMove(Vector(10, 0, 0));
  Matrix scale = MatrixScale(Vector(2, 2, 2));
  expectNear((move * scale) * Vector(1, 1, 1), Vector(12, 2, 2));
  expectNear((scale * move) * Vector(1, 1, 1), Vector(22, 2, 2));
}

TEST(Matrix, InvertUndoesAnAffineMatrix) {
  Matrix m = MatrixMove(Vector(1, -2, 3)) * MatrixRotY(0.3) * MatrixRotX(1.1) *
             MatrixScale(Vector(2, 3, 0.5));
  Matrix identity = Invert(m) * m;
  for (const Vector& p : {Vector(1, 2, 3), Vector(-5, 0, 9)}) expectNear(identity * p, p);
}

TEST(Matrix, SingularMatrixInvertsToIdentity) {
  EXPECT_EQ(Invert(MatrixScale(Vector(1, 0, 1))), Matrix());
}

TEST(Matrix, HeadingPitchBankRoundTrip) {
  const Vector angles[] = {{0.3, -0.4, 1.2}, {-2.0, 1.0, -0.5}, {0.0, 0.0, 0.0}};
  for (const Vector& hpb : angles) expectNear(MatrixToHPB(HPBToMatrix(hpb)), hpb);
}

TEST(Matrix, RotationsTurnAxesAsDocumented) {
  expectNear(MatrixRotY(mt::kPi / 2) * Vector(0, 0, 1), Vector(-1, 0, 0));
  expectNear(MatrixRotZ(mt::kPi / 2) * Vector(1, 0, 0), Vector(0, -1, 0));
  expectNear(MatrixRotX(mt::kPi / 2) * Vector(0, 1, 0), Vector(0, 0, -1));
}

}  // namespace
