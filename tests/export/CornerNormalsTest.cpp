#include <gtest/gtest.h>

#include <cmath>

#include "core/MathConstants.h"
#include "export/CornerNormals.h"
#include "geometry/MeshData.h"
#include "support/GeometryExpectations.h"

namespace {

// The unit cube, point index x + 2y + 4z, quads facing outward.
mv::MeshData cube() {
  mv::MeshData mesh;
  for (int k = 0; k < 8; ++k) mesh.points.emplace_back(k & 1, (k >> 1) & 1, (k >> 2) & 1);
  mesh.polygons = {{0, 2, 3, 1, -1}, {4, 5, 7, 6, -1}, {0, 1, 5, 4, -1},
                   {2, 6, 7, 3, -1}, {0, 4, 6, 2, -1}, {1, 3, 7, 5, -1}};
  mesh.texturePolygons.resize(6);
  return mesh;
}

}  // namespace

TEST(CornerNormals, creaseKeepsCubeFacesHardAndWideAngleSmoothsThem) {
  const mv::MeshData mesh = cube();
  const mv::CornerNormals hard(mesh, mv::kPi / 3);
  for (int k = 0; k < 4; ++k) {
    expectNear(hard.at(0, k), {0, 0, -1}, 1e-7);
    expectNear(hard.at(5, k), {1, 0, 0}, 1e-7);
  }
  const mv::CornerNormals smooth(mesh, mv::kPi);
  const double s = 1.0 / std::sqrt(3.0);
  expectNear(smooth.at(0, 0), {-s, -s, -s}, 1e-7);  // corner a of the bottom face: point 0
  expectNear(smooth.at(1, 2), {s, s, s}, 1e-7);     // corner c of the top face: point 7
}

TEST(CornerNormals, polygonWithoutAreaBorrowsFromItsNeighbours) {
  mv::MeshData mesh = cube();
  mesh.points.emplace_back(0.5, 0.5, 1.0);
  mesh.polygons.push_back({4, 8, 8, 8, -1});  // collapsed to a line
  const mv::CornerNormals normals(mesh, mv::kPi / 3);
  expectNear(normals.at(6, 1), {0, 0, 1});  // the only polygon at point 8 is itself: +z
  EXPECT_NEAR(normals.at(6, 0).length(), 1.0, 1e-12);
}
