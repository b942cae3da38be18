#include <gtest/gtest.h>

#include <cmath>

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
  const std::vector<mv::Vector3> hard = mv::CornerNormals::compute(mesh, M_PI / 3);
  ASSERT_EQ(hard.size(), 24u);
  for (int k = 0; k < 4; ++k) {
    expectNear(hard[k], {0, 0, -1});
    expectNear(hard[20 + k], {1, 0, 0});
  }
  const std::vector<mv::Vector3> smooth = mv::CornerNormals::compute(mesh, M_PI);
  const double s = 1.0 / std::sqrt(3.0);
  expectNear(smooth[0], {-s, -s, -s});       // corner a of the bottom face: point 0
  expectNear(smooth[4 * 1 + 2], {s, s, s});  // corner c of the top face: point 7
}

TEST(CornerNormals, polygonWithoutAreaBorrowsFromItsNeighbours) {
  mv::MeshData mesh = cube();
  mesh.points.emplace_back(0.5, 0.5, 1.0);
  mesh.polygons.push_back({4, 8, 8, 8, -1});  // collapsed to a line
  const std::vector<mv::Vector3> normals = mv::CornerNormals::compute(mesh, M_PI / 3);
  expectNear(normals[4 * 6 + 1], {0, 0, 1});  // the only polygon at point 8 is itself: +z
  EXPECT_NEAR(normals[4 * 6].length(), 1.0, 1e-12);
}
