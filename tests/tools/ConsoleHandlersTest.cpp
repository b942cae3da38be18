#include <gtest/gtest.h>

#include <sstream>

#include "console/ConsoleMessageHandler.h"
#include "console/ConsoleProgressHandler.h"

// One row per verbosity: the lines that the same five messages leave.
TEST(ConsoleMessageHandler, showsEachKindFromItsVerbosityOn) {
  const std::string error = "Morvo Error: no path\n", warning = "Morvo Warning: thin\n",
                    info = "Morvo Info: ready\n", debug = "Morvo Debug: chunk\n", plain = "raw\n";
  const std::pair<ConsoleMessageHandler::Verbosity, std::string> cases[] = {
      {ConsoleMessageHandler::Quiet, error},
      {ConsoleMessageHandler::Normal, error + warning + info},
      {ConsoleMessageHandler::Verbose, error + warning + info + plain},
      {ConsoleMessageHandler::Debug, error + warning + info + debug + plain},
  };
  for (const auto& [verbosity, expected] : cases) {
    std::ostringstream out;
    ConsoleMessageHandler handler(out, verbosity);
    handler.error("no path");
    handler.warning("thin");
    handler.info("ready");
    handler.debug("chunk");
    handler.print("raw");
    EXPECT_EQ(out.str(), expected) << verbosity;
    EXPECT_EQ(handler.errorCount(), 1);
  }
}

TEST(ConsoleMessageHandler, aMessageNeverSharesTheLineOfTheProgressBar) {
  std::ostringstream out;
  ConsoleProgressHandler bar(out, true);
  ConsoleMessageHandler handler(out, ConsoleMessageHandler::Normal, &bar);
  bar.setProgress(0.5);
  handler.warning("thin");
  const std::string text = out.str();
  const std::size_t message = text.find("Morvo Warning: thin\n");
  ASSERT_NE(message, std::string::npos);
  EXPECT_EQ(text[message - 1], '\r');  // the bar was erased first
  bar.setProgress(0.5);                // and is drawn again at the same percent
  EXPECT_NE(out.str().find("] 50%", message), std::string::npos);
  bar.hide();
  const std::size_t hidden = out.str().size();
  bar.setProgress(0.9);
  EXPECT_EQ(out.str().size(), hidden);
}

TEST(ConsoleProgressHandler, drawsNothingOffATerminal) {
  std::ostringstream out;
  ConsoleProgressHandler handler(out, false);
  handler.setProgress(0.5);
  handler.spin();
  handler.finish();
  EXPECT_TRUE(out.str().empty());
  EXPECT_FALSE(handler.isCancelled());
}

TEST(ConsoleProgressHandler, redrawsOnlyWhenThePercentChangesAndClearsAtFinish) {
  std::ostringstream out;
  ConsoleProgressHandler handler(out, true);
  handler.setProgress(0.5);
  const std::string once = out.str();
  EXPECT_NE(once.find("] 50%"), std::string::npos);
  handler.setProgress(0.501);
  EXPECT_EQ(out.str(), once);
  handler.setProgress(7.0);  // clamped
  EXPECT_NE(out.str().find("] 100%"), std::string::npos);
  handler.finish();
  EXPECT_EQ(out.str().back(), '\r');
}
