#include <gtest/gtest.h>

#include "core/MathConstants.h"
#include "source/MatrixConversion.h"
#include "support/GeometryExpectations.h"

namespace {

void expectSameHost(const Matrix& actual, const Matrix& expected) {
  for (const auto& [a, b] :
       {std::pair{actual.off, expected.off}, std::pair{actual.v1, expected.v1},
        std::pair{actual.v2, expected.v2}, std::pair{actual.v3, expected.v3}}) {
    EXPECT_NEAR(a.x, b.x, 1e-12);
    EXPECT_NEAR(a.y, b.y, 1e-12);
    EXPECT_NEAR(a.z, b.z, 1e-12);
  }
}

TEST(MatrixConversion, swapsYAndZOfEveryAxisAndTheOffset) {
  const mv::Matrix4 library = mv::Matrix4::fromRows({1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12});
  const Matrix host = toHostMatrix(library);
  // The library's y axis is the host's z axis: rows 1 and 2 trade places, and so do y and z.
  expectSameHost(host, Matrix({10, 12, 11}, {1, 3, 2}, {7, 9, 8}, {4, 6, 5}));
}

TEST(MatrixConversion, aPointMapsTheSameWayInBothSystems) {
  const mv::Matrix4 library = mv::Matrix4::rotationZ(0.3) * mv::Matrix4::translation({1, -2, 5});
  const mv::Vector3 point{0.5, 2.0, -1.5};
  const mv::Vector3 expected = library.transformPoint(point);
  const Vector moved = toHostMatrix(library) * toHostVector(point);
  expectNear(toLibraryVector(moved), expected, 1e-12);
}

TEST(MatrixConversion, roundTripsBothWays) {
  const mv::Matrix4 library = mv::Matrix4::rotationX(0.7) * mv::Matrix4::scaling({1, 2, 3}) *
                              mv::Matrix4::translation({4, 5, 6});
  expectNear(toLibraryMatrix(toHostMatrix(library)), library, 1e-12);
  const Matrix host = MatrixRotY(0.4) * MatrixMove(Vector(1, 2, 3));
  expectSameHost(toHostMatrix(toLibraryMatrix(host)), host);
}

TEST(MatrixConversion, vectorsSwapYAndZ) {
  expectNear(toLibraryVector(Vector(1, 2, 3)), mv::Vector3(1, 3, 2), 0.0);
  const Vector host = toHostVector({1, 2, 3});
  EXPECT_EQ(host, Vector(1, 3, 2));
}

}  // namespace
