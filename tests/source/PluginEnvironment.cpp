// The plug-in is loaded once per test program, as the host loads it at start: registrations last
// for the process.
#include <gtest/gtest.h>

#include "host/PluginLoader.h"
#include "source/Main.h"

namespace {

class PluginEnvironment : public testing::Environment {
 public:
  void SetUp() override { ASSERT_TRUE(PluginLoader::Load(&c4d_main, MORVO_SOURCE_DIR "/")); }
  void TearDown() override { PluginLoader::Unload(&c4d_main); }
};

const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new PluginEnvironment);

}  // namespace
