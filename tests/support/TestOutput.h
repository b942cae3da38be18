// testOutputPath: where tests write files that CI inspects afterwards (MORVO_TEST_OUTPUT_DIR,
// created on first use). Every test names its own files, since tests run in parallel.
#pragma once

#include <filesystem>
#include <string>

inline std::string testOutputPath(const std::string& fileName) {
  const std::filesystem::path directory(MORVO_TEST_OUTPUT_DIR);
  std::filesystem::create_directories(directory);
  return (directory / fileName).string();
}
