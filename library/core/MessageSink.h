// MessageSink: the process-wide handle through which library code reports. It forwards to the
// installed MessageHandler and drops every call while none is installed, so that the library runs
// headless without change. Not synchronised: install once, before any evaluation.
#pragma once

#include <string>

#include "core/MessageHandler.h"

namespace mv {

class MessageSink {
 public:
  MessageHandler* handler = nullptr;  // not owned

  void error(const std::string& text) const;
  void warning(const std::string& text) const;
  void info(const std::string& text) const;
  void debug(const std::string& text) const;
  void print(const std::string& text) const;
};

extern MessageSink messageSink;

}  // namespace mv
