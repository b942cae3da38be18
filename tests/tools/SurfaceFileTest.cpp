#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "commands/SurfaceFile.h"
#include "export/GlbWriter.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/TestOutput.h"

namespace {

// Written into a folder of their own, since some are broken on purpose and the output folder's
// glTF files are all validated.
std::string writeText(const std::string& name, const std::string& text) {
  const std::filesystem::path folder = testOutputPath("surface-inputs");
  std::filesystem::create_directories(folder);
  const std::string path = (folder / name).string();
  std::ofstream(path) << text;
  return path;
}

}  // namespace

TEST(SurfaceFile, objKeepsQuadsAndTrianglesAndFansLargerFaces) {
  const std::string path = writeText("surface-faces.obj",
                                     "v 0 0 0\nv 1 0 0\nv 1 0 1\nv 0 0 1\nv 0.5 0 1.5\n"
                                     "f 1 2 3 4\nf 1 2 3\nf 1 2 3 5 4\nf 1 2 9\n");
  mv::MeshData mesh;
  CapturingMessageHandler capture;
  ASSERT_TRUE(SurfaceFile::read(path, mesh));
  ASSERT_EQ(mesh.points.size(), 5u);
  // File y up becomes library z up: (1, 0, 1) lies at x 1, y -1.
  expectNear(mesh.points[2], mv::Vector3(1, -1, 0), 0.0);
  // The quad, the triangle, the pentagon as three triangles; the face naming point 9 is left out.
  ASSERT_EQ(mesh.polygons.size(), 5u);
  EXPECT_FALSE(mesh.polygons[0].isTriangle());
  EXPECT_EQ(mesh.polygons[0].d, 3u);
  for (size_t k = 1; k < 5; ++k) EXPECT_TRUE(mesh.polygons[k].isTriangle()) << k;
  EXPECT_EQ(mesh.polygons[4].b, 4u);
  EXPECT_EQ(mesh.polygons[4].c, 3u);
}

TEST(SurfaceFile, glbRoundTripGivesTheWrittenTriangles) {
  mv::MeshData written;
  written.points = {{0, 0, 0}, {2, 0, 0}, {2, 3, 0}, {0, 3, 1}};
  written.polygons = {{0, 1, 2, 3, -1}};
  const std::string path = testOutputPath("surface-quad.glb");
  ASSERT_TRUE(mv::GlbWriter().write(written, path));
  mv::MeshData mesh;
  ASSERT_TRUE(SurfaceFile::read(path, mesh));
  ASSERT_EQ(mesh.polygons.size(), 2u);  // the quad comes back as two triangles
  for (const mv::MeshPolygon& triangle : mesh.polygons) {
    EXPECT_TRUE(triangle.isTriangle());
    for (uint32_t corner : {triangle.a, triangle.b, triangle.c}) {
      const mv::Vector3 p = mesh.points.at(corner);
      bool found = false;
      for (const mv::Vector3& w : written.points) found = found || (p - w).length() < 1e-6;
      EXPECT_TRUE(found) << p.x << " " << p.y << " " << p.z;
    }
  }
}

TEST(SurfaceFile, refusesWhatHoldsNoSurface) {
  struct Case {
    std::string path;
    std::string error;
  };
  const std::string noFaces = writeText("surface-points.obj", "v 0 0 0\nv 1 0 0\n");
  const std::string broken = writeText("surface-broken.glb", "glTF\x02\x00\x00\x00garbage");
  const std::string other = writeText("surface.stl", "solid");
  const Case cases[] = {
      {noFaces, noFaces + " holds no polygon to grow grass on"},
      {other, "The surface must be an .obj, .glb or .gltf file: " + other},
      {testOutputPath("missing.obj"), "Cannot read " + testOutputPath("missing.obj")},
      {broken, "Cannot read " + broken},
  };
  for (const Case& c : cases) {
    CapturingMessageHandler capture;
    mv::MeshData mesh;
    EXPECT_FALSE(SurfaceFile::read(c.path, mesh)) << c.path;
    ASSERT_FALSE(capture.errors.empty()) << c.path;
    EXPECT_EQ(capture.errors.back().substr(0, c.error.size()), c.error);
  }
}
