// StreamConsole: the host's console for the morvo command: each console line goes to a stream
// (standard error for messages, standard output where a command's result is what the host
// shows); the status line and special events are dropped.
#pragma once

#include <ostream>

#include "host/HostConsole.h"

class StreamConsole : public HostConsole {
 public:
  explicit StreamConsole(std::ostream& out) : out_(out) {}

  void print(const String& line) override { out_ << line << '\n'; }
  void statusText(const String&) override {}
  void statusBar(Int32) override {}
  void statusSpin() override {}
  void statusClear() override {}
  void specialEvent(Int32, UInt64, UInt64) override {}

 private:
  std::ostream& out_;
};
