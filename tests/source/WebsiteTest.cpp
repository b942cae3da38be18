#include "source/Website.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/GeResource.h"
#include "support/CapturingConsole.h"
#include "support/TestOutput.h"

namespace {

// A resource folder of its own holding these strings.
void loadStrings(const std::string& folder, const std::string& strings) {
  const std::filesystem::path path = testOutputPath(folder);
  std::filesystem::create_directories(path);
  std::ofstream(path / "strings.str") << strings;
  ASSERT_TRUE(GeResource::Init(Filename(path.string())));
}

// Each test loads strings of its own; the plug-in's own come back afterwards.
class WebsiteCommand : public testing::Test {
 protected:
  void TearDown() override { GeResource::Init(Filename(MORVO_SOURCE_DIR "/res")); }
};

}  // namespace

TEST_F(WebsiteCommand, opensTheAddressBuiltFromTheStrings) {
  loadStrings("website-res", "10020 \"https://docs.example.org/morvo\"\n10021 \"=de\"\n");
  const String expected =
      "https://docs.example.org/morvo?action=docs&pf=c4d&os=mac&lang=de&ver=5.0.2";
  EXPECT_EQ(Website::address(), expected);
  CapturingConsole console;
  Website website;
  EXPECT_TRUE(website.Execute(nullptr));
  EXPECT_EQ(console.lines, std::vector<String>{"Open " + expected});
  EXPECT_EQ(website.GetState(nullptr), 0x40000000);
}

TEST_F(WebsiteCommand, withoutTheEndpointDoesNothingAndSaysFalse) {
  loadStrings("website-res-empty", "10021 \"=en\"\n");
  EXPECT_EQ(Website::address(), "");
  CapturingConsole console;
  EXPECT_FALSE(Website().Execute(nullptr));
  EXPECT_TRUE(console.lines.empty());
}
