#include <gtest/gtest.h>

#include <sstream>

#include "console/ConsoleMessageHandler.h"
#include "console/ConsoleProgressHandler.h"

TEST(ConsoleMessageHandler, prefixesEachKindOnItsOwnLine) {
  std::ostringstream out;
  ConsoleMessageHandler handler(out, true);
  handler.error("no path");
  handler.warning("thin");
  handler.info("ready");
  handler.debug("chunk");
  handler.print("raw");
  EXPECT_EQ(out.str(),
            "Morvo Error: no path\nMorvo Warning: thin\nMorvo Info: ready\n"
            "Morvo Debug: chunk\nraw\n");
  EXPECT_EQ(handler.errorCount(), 1);
}

TEST(ConsoleMessageHandler, hidesDebugUnlessAsked) {
  std::ostringstream out;
  ConsoleMessageHandler handler(out);
  handler.debug("chunk");
  EXPECT_TRUE(out.str().empty());
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
