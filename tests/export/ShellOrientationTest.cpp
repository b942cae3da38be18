#include <gtest/gtest.h>

#include "export/ShellOrientation.h"
#include "geometry/MeshData.h"

namespace {

// The unit cube, point index x + 2y + 4z, quads facing outward.
mv::MeshData cube(const mv::Vector3& offset = {}) {
  mv::MeshData mesh;
  for (int k = 0; k < 8; ++k) {
    mesh.points.push_back(mv::Vector3(k & 1, (k >> 1) & 1, (k >> 2) & 1) + offset);
  }
  mesh.polygons = {{0, 2, 3, 1, -1}, {4, 5, 7, 6, -1}, {0, 1, 5, 4, -1},
                   {2, 6, 7, 3, -1}, {0, 4, 6, 2, -1}, {1, 3, 7, 5, -1}};
  return mesh;
}

mv::MeshPolygon reversed(const mv::MeshPolygon& p) { return {p.a, p.d, p.c, p.b, p.material}; }

// Every face with points of its own, as the solids write them: only positions join the faces.
mv::MeshData separateFaces(const mv::MeshData& mesh) {
  mv::MeshData result;
  for (const mv::MeshPolygon& p : mesh.polygons) {
    const uint32_t first = uint32_t(result.points.size());
    for (uint32_t corner : {p.a, p.b, p.c, p.d}) result.points.push_back(mesh.points[corner]);
    result.polygons.push_back({first, first + 1, first + 2, first + 3, p.material});
  }
  return result;
}

void append(mv::MeshData& mesh, const mv::MeshData& more) {
  const uint32_t first = uint32_t(mesh.points.size());
  mesh.points.insert(mesh.points.end(), more.points.begin(), more.points.end());
  for (mv::MeshPolygon p : more.polygons) {
    p.a += first, p.b += first, p.c += first, p.d += first;
    mesh.polygons.push_back(p);
  }
}

}  // namespace

TEST(ShellOrientation, outwardCubeStaysAndInsideOutCubeIsReversed) {
  mv::MeshData inside = cube({5, 0, 0});
  for (mv::MeshPolygon& p : inside.polygons) p = reversed(p);
  mv::MeshData mesh = cube();
  append(mesh, separateFaces(inside));  // a second shell far from the origin, faces apart
  const mv::ShellOrientation shells(mesh);
  for (uint32_t i = 0; i < mesh.polygons.size(); ++i) {
    EXPECT_EQ(shells.reversed(i), i >= 6) << "polygon " << i;
    EXPECT_FALSE(shells.inOpenSheet(i)) << "polygon " << i;
  }
}

TEST(ShellOrientation, cubeWithoutALidIsAnOpenSheetInEitherSense) {
  for (bool inward : {false, true}) {
    mv::MeshData mesh = cube();
    mesh.polygons.pop_back();
    if (inward) {
      for (mv::MeshPolygon& p : mesh.polygons) p = reversed(p);
    }
    const mv::ShellOrientation shells(mesh);
    for (uint32_t i = 0; i < mesh.polygons.size(); ++i) {
      EXPECT_TRUE(shells.inOpenSheet(i));
      EXPECT_FALSE(shells.reversed(i));
    }
  }
}

// A cone's tip: quads whose two top corners are distinct points at one position are the
// triangles they look like, and the fan closes the shell.
TEST(ShellOrientation, collapsedCornersStillCloseAShell) {
  mv::MeshData mesh;
  mesh.points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}};
  // Tetrahedron with its faces turned inward, two of them quads with a collapsed edge.
  mesh.polygons = {{0, 1, 2, 2, 0}, {0, 3, 4, 1, 0}, {1, 4, 5, 2, 0}, {2, 5, 3, 0, 0}};
  const mv::ShellOrientation shells(mesh);
  for (uint32_t i = 0; i < 4; ++i) {
    EXPECT_TRUE(shells.reversed(i)) << "polygon " << i;
    EXPECT_FALSE(shells.inOpenSheet(i));
  }
}

TEST(ShellOrientation, anEdgeSharedByThreeFacesOpensTheShell) {
  mv::MeshData mesh = cube();
  mesh.points.push_back({0.5, -1, 0});
  mesh.polygons.push_back({0, 1, 8, 8, -1});  // a fin on the bottom edge
  const mv::ShellOrientation shells(mesh);
  EXPECT_TRUE(shells.inOpenSheet(0));
  EXPECT_TRUE(shells.inOpenSheet(6));
}
