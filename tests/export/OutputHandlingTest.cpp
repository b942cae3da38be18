// What the writers do around the file: what they refuse to replace, names at the length limit,
// OBJ and MTL as a pair, and an interrupted write.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "ExportSamples.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "support/CapturingMessageHandler.h"
#include "support/TestOutput.h"

namespace fs = std::filesystem;

namespace {

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

void writeText(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// Temporary files of process pid in a folder, by default the output folder.
size_t temporaryFilesOf(pid_t pid,
                        fs::path directory = fs::path(testOutputPath("x")).parent_path()) {
  char prefix[32];
  std::snprintf(prefix, sizeof prefix, ".mv%x-", unsigned(pid));
  size_t count = 0;
  for (const auto& entry : fs::directory_iterator(directory)) {
    count += entry.path().filename().string().rfind(prefix, 0) == 0 ? 1 : 0;
  }
  return count;
}

// A fresh folder of its own for a test.
std::string folder(const std::string& name) {
  const std::string path = testOutputPath(name);
  fs::remove_all(path);
  fs::create_directories(path);
  return path;
}

bool writeWith(const std::string& path, bool replaceAnyFile) {
  mv::WriteOptions options;
  options.replaceAnyFile = replaceAnyFile;
  if (path.size() > 4 && path.compare(path.size() - 4, 4, ".obj") == 0) {
    mv::ObjWriter writer;
    writer.setOptions(options);
    return writer.write(sampleMesh(), path);
  }
  mv::GlbWriter writer;
  writer.setOptions(options);
  return writer.write(sampleMesh(), path);
}

// A sheet of 490 000 quads: large enough that a write takes a while.
mv::MeshData largeSheet() {
  mv::MeshData large;
  {
    std::vector<mv::Vector3> points;
    const int n = 700;
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < n; ++i) points.emplace_back(i, j, std::sin(i * 0.01) * j * 0.01);
    }
    mv::OPolygonStream stream(&large, true);
    mv::GeomPrimitiveWriter::writePatch(stream, n, n, points);
  }
  return large;
}

// Starts writing path in a child process and returns the child once its temporary file exists
// in base; -1 when the child could not start or ended before that.
pid_t writeInChild(const mv::MeshData& mesh, const std::string& path, const std::string& base) {
  const pid_t child = fork();
  if (child == 0) {
    const bool obj = path.compare(path.size() - 4, 4, ".obj") == 0;
    _exit(obj ? mv::ObjWriter().write(mesh, path) : mv::GlbWriter().write(mesh, path));
  }
  int status = 0;
  while (child > 0 && temporaryFilesOf(child, base) == 0) {
    if (waitpid(child, &status, WNOHANG) == child) return -1;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return child;
}

}  // namespace

TEST(OutputHandling, directoryDeviceAndSymbolicLinkAreNotReplaced) {
  const std::string base = folder("refused");
  fs::create_directory(base + "/plant.glb");
  writeText(base + "/target.glb", "kept");
  fs::create_symlink("target.glb", base + "/link.glb");
  const std::pair<std::string, std::string> rows[] = {{base + "/plant.glb", "a directory"},
                                                      {base + "/link.glb", "a symbolic link"},
                                                      {"/dev/null", "a device or special file"}};
  for (const auto& [path, kind] : rows) {
    CapturingMessageHandler messages;
    EXPECT_FALSE(writeWith(path, false)) << path;
    ASSERT_EQ(messages.errors.size(), 1u) << path;
    EXPECT_EQ(messages.errors[0],
              "Not replacing " + path + ", which is " + kind + " (use --force to replace it)");
  }
  EXPECT_TRUE(fs::is_directory(base + "/plant.glb"));
  EXPECT_TRUE(fs::is_symlink(base + "/link.glb"));
  EXPECT_EQ(contents(base + "/target.glb"), "kept");
  EXPECT_EQ(temporaryFilesOf(getpid()), 0u);
}

TEST(OutputHandling, forcedWriteReplacesTheLinkNotItsTarget) {
  const std::string base = folder("forced");
  writeText(base + "/target.glb", "kept");
  fs::create_symlink("target.glb", base + "/link.glb");
  EXPECT_TRUE(writeWith(base + "/link.glb", true));
  EXPECT_FALSE(fs::is_symlink(base + "/link.glb"));
  EXPECT_GT(fs::file_size(base + "/link.glb"), 1000u);
  EXPECT_EQ(contents(base + "/target.glb"), "kept");
}

TEST(OutputHandling, longestLegalNameIsWritten) {
  const std::string base = folder("long-name");
  for (const char* suffix : {".glb", ".obj"}) {
    const std::string name = std::string(255 - 4, 'p') + suffix;
    EXPECT_TRUE(writeWith(base + "/" + name, false)) << suffix;
    EXPECT_TRUE(fs::is_regular_file(base + "/" + name)) << suffix;
  }
}

TEST(OutputHandling, objAndMtlAppearTogetherOrNotAtAll) {
  const std::string base = folder("pair");
  // The .obj cannot be placed (a directory stands there): no .mtl may appear either.
  fs::create_directory(base + "/plant.obj");
  EXPECT_FALSE(writeWith(base + "/plant.obj", false));
  EXPECT_FALSE(fs::exists(base + "/plant.mtl"));
  // Forced, the .mtl is placed first; when the .obj then cannot be, the earlier .mtl returns.
  writeText(base + "/plant.mtl", "earlier");
  {
    CapturingMessageHandler messages;
    EXPECT_FALSE(writeWith(base + "/plant.obj", true));
    EXPECT_EQ(messages.errors.back(), "Cannot replace " + base + "/plant.obj");
  }
  EXPECT_EQ(contents(base + "/plant.mtl"), "earlier");
  fs::remove(base + "/plant.mtl");
  EXPECT_FALSE(writeWith(base + "/plant.obj", true));
  EXPECT_FALSE(fs::exists(base + "/plant.mtl"));
  EXPECT_EQ(std::distance(fs::directory_iterator(base), {}), 1);  // the directory alone
}

// A child process writes a large mesh over an earlier file and is stopped by a signal while the
// temporary file exists: the earlier file stays and the temporary file goes.
TEST(OutputHandling, interruptedWriteLeavesTheDestinationAndNoTemporaryFile) {
  const mv::MeshData large = largeSheet();
  const std::string base = folder("interrupted");
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
    for (const std::string suffix : {".glb", ".obj"}) {
      const std::string path = base + "/plant" + suffix;
      writeText(path, "earlier");
      const pid_t child = fork();
      ASSERT_GE(child, 0);
      if (child == 0) {
        _exit(suffix == ".glb" ? mv::GlbWriter().write(large, path)
                               : mv::ObjWriter().write(large, path));
      }
      while (temporaryFilesOf(child, base) == 0) {
        std::this_thread::sleep_for(std::chrono::microseconds(100));
      }
      kill(child, signal);
      int status = 0;
      waitpid(child, &status, 0);
      EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal << suffix;
      EXPECT_EQ(contents(path), "earlier") << signal << suffix;
      EXPECT_EQ(temporaryFilesOf(child, base), 0u) << signal << suffix;
    }
  }
}

// Under nohup a hang-up is ignored, and the write goes on to its end.
TEST(OutputHandling, ignoredHangUpLetsTheWriteFinish) {
  const std::string base = folder("hang-up-ignored");
  const std::string path = base + "/plant.glb";
  writeText(path, "earlier");
  const auto previous = signal(SIGHUP, SIG_IGN);  // inherited by the child
  const pid_t child = writeInChild(largeSheet(), path, base);
  signal(SIGHUP, previous);
  ASSERT_GT(child, 0);
  kill(child, SIGHUP);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1);  // write returned true
  EXPECT_GT(fs::file_size(path), 1000000u);
  EXPECT_EQ(temporaryFilesOf(child, base), 0u);
}
