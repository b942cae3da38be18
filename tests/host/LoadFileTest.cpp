#include "host/LoadFile.h"

#include <gtest/gtest.h>

#include <fstream>

#include "host/GeOpenHTML.h"
#include "support/CapturingConsole.h"
#include "support/TestOutput.h"

namespace {

std::string writeLayout(const std::string& name, const std::string& text) {
  const std::string path = testOutputPath(name);
  std::ofstream(path) << text;
  return path;
}

}  // namespace

TEST(LoadFile, layoutGivesItsCommandsInOrder) {
  const std::string path = writeLayout("layout-palette.l4d",
                                       "# palette\n\ncommand 1011501\n  command 42  \ncommand 7\n");
  ASSERT_TRUE(LoadFile(path));
  EXPECT_EQ(CurrentLayoutCommands(), (std::vector<Int32>{1011501, 42, 7}));
}

TEST(LoadFile, refusalsKeepTheCurrentLayout) {
  ASSERT_TRUE(LoadFile(writeLayout("layout-kept.l4d", "command 5\n")));
  struct Case {
    std::string path;
    std::string line;
  };
  const std::string bad = writeLayout("layout-bad.l4d", "command 5\ncommand five\n");
  const std::string extra = writeLayout("layout-extra.l4d", "command 5 6\n");
  const std::string negative = writeLayout("layout-negative.l4d", "command -5\n");
  const std::string other = writeLayout("layout.txt", "command 5\n");
  const std::string missing = testOutputPath("layout-missing.l4d");
  const Case cases[] = {
      {bad, "Cannot load " + bad + ": line 2 is no command"},
      {extra, "Cannot load " + extra + ": line 1 is no command"},
      {negative, "Cannot load " + negative + ": line 1 is no command"},
      {other, "Cannot load " + other + ": not a window layout"},
      {missing, "Cannot load " + missing + ": the file cannot be read"},
  };
  for (const Case& c : cases) {
    CapturingConsole console;
    EXPECT_FALSE(LoadFile(c.path)) << c.path;
    EXPECT_EQ(console.lines, std::vector<String>{c.line});
    EXPECT_EQ(CurrentLayoutCommands(), std::vector<Int32>{5});
  }
}

TEST(GeOpenHTML, showsTheAddressOnTheConsole) {
  CapturingConsole console;
  EXPECT_TRUE(GeOpenHTML("https://example.org/docs?x=1"));
  EXPECT_FALSE(GeOpenHTML(""));
  EXPECT_EQ(console.lines, std::vector<String>{"Open https://example.org/docs?x=1"});
}
