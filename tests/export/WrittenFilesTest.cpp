// Runs after every other test (a CTest fixture cleanup) and judges all the .glb files that the
// tests and the command-line renders wrote.
#include <gtest/gtest.h>

#include <filesystem>

#include "GlbReading.h"
#include "support/ShellVolumes.h"
#include "support/TestOutput.h"

TEST(WrittenFiles, everyClosedShellInEveryGlbFacesOutward) {
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
