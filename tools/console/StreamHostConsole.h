// StreamHostConsole: the host's console as the morvo command shows it: console lines on a stream
// (standard error), the status bar on the command's progress display.
#pragma once

#include <ostream>

#include "core/ProgressHandler.h"
#include "host/HostConsole.h"

class StreamHostConsole : public HostConsole {
 public:
  StreamHostConsole(std::ostream& out, mv::ProgressHandler& progress)
      : out_(out), progress_(progress) {}

  void print(const String& line) override { out_ << line << "\n"; }
  void statusText(const String&) override {}
  void statusBar(Int32 percent) override { progress_.setProgress(percent / 100.0); }
  void statusSpin() override { progress_.spin(); }
  void statusClear() override { progress_.finish(); }
  void specialEvent(Int32, UInt64, UInt64) override {}

 private:
  std::ostream& out_;
  mv::ProgressHandler& progress_;
};
