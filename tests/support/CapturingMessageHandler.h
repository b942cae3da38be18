// CapturingMessageHandler: records library messages for tests and installs itself in messageSink
// for its lifetime.
#pragma once

#include <string>
#include <vector>

#include "core/MessageSink.h"

class CapturingMessageHandler : public mv::MessageHandler {
 public:
  CapturingMessageHandler() : previous_(mv::messageSink.handler) { mv::messageSink.handler = this; }
  ~CapturingMessageHandler() override { mv::messageSink.handler = previous_; }

  void error(const std::string& text) override { errors.push_back(text); }
  void warning(const std::string& text) override { warnings.push_back(text); }
  void info(const std::string& text) override { infos.push_back(text); }
  void debug(const std::string& text) override { debugs.push_back(text); }
  void print(const std::string& text) override { prints.push_back(text); }

  std::vector<std::string> errors, warnings, infos, debugs, prints;

 private:
  mv::MessageHandler* previous_;
};
