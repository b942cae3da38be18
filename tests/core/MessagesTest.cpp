#include <gtest/gtest.h>

#include "core/ProgressSink.h"
#include "support/CapturingMessageHandler.h"

namespace {

class RecordingProgress : public mv::ProgressHandler {
 public:
  void start() override { calls += "start "; }
  void finish() override { calls += "finish "; }
  void spin() override { calls += "spin "; }
  void setProgress(double value) override { calls += std::to_string(value).substr(0, 3) + " "; }
  bool isCancelled() override { return true; }
  std::string calls;
};

}  // namespace

TEST(MessageSink, dropsEverythingWhenNoHandlerIsInstalled) {
  ASSERT_EQ(mv::messageSink.handler, nullptr);
  mv::messageSink.error("lost");
  mv::messageSink.warning("lost");
  mv::messageSink.info("lost");
  mv::messageSink.debug("lost");
  mv::messageSink.print("lost");
}

TEST(MessageSink, forwardsEachKindToItsOperation) {
  CapturingMessageHandler capture;
  mv::messageSink.error("e");
  mv::messageSink.warning("w");
  mv::messageSink.info("i");
  mv::messageSink.debug("d");
  mv::messageSink.print("p");
  EXPECT_EQ(capture.errors, std::vector<std::string>{"e"});
  EXPECT_EQ(capture.warnings, std::vector<std::string>{"w"});
  EXPECT_EQ(capture.infos, std::vector<std::string>{"i"});
  EXPECT_EQ(capture.debugs, std::vector<std::string>{"d"});
  EXPECT_EQ(capture.prints, std::vector<std::string>{"p"});
}

TEST(ProgressSink, notCancelledAndSilentWithoutHandler) {
  ASSERT_EQ(mv::progressSink.handler, nullptr);
  mv::progressSink.setProgress(0.5);
  mv::progressSink.finish();
  EXPECT_FALSE(mv::progressSink.isCancelled());
}

TEST(ProgressSink, forwardsToInstalledHandler) {
  RecordingProgress progress;
  mv::progressSink.handler = &progress;
  mv::progressSink.start();
  mv::progressSink.setProgress(0.25);
  mv::progressSink.spin();
  mv::progressSink.finish();
  EXPECT_TRUE(mv::progressSink.isCancelled());
  mv::progressSink.handler = nullptr;
  EXPECT_EQ(progress.calls, "start 0.2 spin finish ");
}
