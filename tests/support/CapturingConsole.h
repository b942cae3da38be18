// CapturingConsole: records the host's console lines and special events for tests, installed for
// its lifetime.
#pragma once

#include <string>
#include <vector>

#include "host/HostConsole.h"

class CapturingConsole : public HostConsole {
 public:
  CapturingConsole() : previous_(HostConsole::Install(this)) {}
  ~CapturingConsole() override { HostConsole::Install(previous_); }

  void print(const String& line) override { lines.push_back(line); }
  void statusText(const String&) override {}
  void statusBar(Int32) override {}
  void statusSpin() override {}
  void statusClear() override {}
  void specialEvent(Int32 id, UInt64, UInt64) override { events.push_back(id); }

  std::vector<String> lines;
  std::vector<Int32> events;

 private:
  HostConsole* previous_;
};
