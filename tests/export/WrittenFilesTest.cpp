// Runs after every other test (a CTest fixture cleanup) and judges all the .glb files that the
// tests and the command-line renders wrote.
#include <gtest/gtest.h>

#include <filesystem>

#include "GlbReading.h"
#include "export/GlbWriter.h"
#include "support/ShellVolumes.h"
#include "support/TestOutput.h"

// The walk always meets at least this file: a unit cube whose faces all point inward.
void writeInsideOutCube() {
  mv::MeshData mesh;
  for (int k = 0; k < 8; ++k) mesh.points.emplace_back(k & 1, (k >> 1) & 1, (k >> 2) & 1);
  mesh.polygons = {{0, 1, 3, 2, 0}, {4, 6, 7, 5, 0}, {0, 4, 5, 1, 0},
                   {2, 3, 7, 6, 0}, {0, 2, 6, 4, 0}, {1, 5, 7, 3, 0}};
  mesh.texturePolygons.resize(6);
  ASSERT_TRUE(mv::GlbWriter().write(mesh, testOutputPath("inside-out-cube.glb")));
}

TEST(WrittenFiles, everyClosedShellInEveryGlbFacesOutward) {
  writeInsideOutCube();
  const std::filesystem::path directory = std::filesystem::path(testOutputPath("x")).parent_path();
  size_t files = 0, closedShells = 0;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    if (entry.path().extension() != ".glb") continue;
    ++files;
    const TriangleSoup soup = triangleSoup(readGlb(entry.path().string()));
    for (const Shell& shell : shellVolumes(soup.positions, soup.triangles)) {
      if (!shell.closed) continue;
      ++closedShells;
      EXPECT_GE(shell.volume, 0.0)
          << entry.path() << ": a shell of " << shell.triangles << " triangles is inside-out";
    }
  }
  EXPECT_GT(files, 0u);
  EXPECT_GT(closedShells, 0u);
}
