// CapturingConsole: records the host's console lines and status calls for tests, installed for
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
  void statusText(const String& text) override { statusTexts.push_back(text); }
  void statusBar(Int32 percent) override { bars.push_back(percent); }
  void statusSpin() override { ++spins; }
  void statusClear() override { ++clears; }
  void specialEvent(Int32 id, UInt64, UInt64) override { events.push_back(id); }

  bool saw(const std::string& line) const {
    for (const std::string& each : lines) {
      if (each == line) return true;
    }
    return false;
  }

  std::vector<std::string> lines, statusTexts;
  std::vector<Int32> bars, events;
  int spins = 0;
  int clears = 0;

 private:
  HostConsole* previous_;
};
