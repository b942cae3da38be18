// ConsoleMessageHandler: prints each library message as one line on a stream (standard error by
// default), with the prefix of its kind.
#pragma once

#include <iostream>
#include <string>

#include "core/MessageHandler.h"

class ConsoleMessageHandler : public mv::MessageHandler {
 public:
  explicit ConsoleMessageHandler(std::ostream& out = std::cerr, bool showDebug = false)
      : out_(out), showDebug_(showDebug) {}

  void error(const std::string& text) override {
    ++errors_;
    line("Morvo Error: ", text);
  }
  void warning(const std::string& text) override { line("Morvo Warning: ", text); }
  void info(const std::string& text) override { line("Morvo Info: ", text); }
  void debug(const std::string& text) override;
  void print(const std::string& text) override { line("", text); }

  int errorCount() const { return errors_; }

 private:
  void line(const char* prefix, const std::string& text);

  std::ostream& out_;
  bool showDebug_;
  int errors_ = 0;
};
