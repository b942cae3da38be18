// MessageHandler: where the library's messages go. The library never prints; a host or a tool
// installs an implementation in messageSink.
#pragma once

#include <string>

namespace mv {

class MessageHandler {
 public:
  virtual ~MessageHandler() = default;
  virtual void error(const std::string& text) = 0;    // a failure that loses a result
  virtual void warning(const std::string& text) = 0;  // the node goes on
  virtual void info(const std::string& text) = 0;
  virtual void debug(const std::string& text) = 0;  // tracing of scene files and similar
  virtual void print(const std::string& text) = 0;  // raw output, no prefix
};

}  // namespace mv
