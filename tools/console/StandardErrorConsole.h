// StandardErrorConsole: the host's console for the morvo command: console lines go to standard
// error, debug lines only when asked for; status calls and special events are dropped. Installed
// for its lifetime.
#pragma once

#include <iostream>
#include <string>

#include "host/HostConsole.h"

class StandardErrorConsole : public HostConsole {
 public:
  explicit StandardErrorConsole(bool showDebug = false)
      : showDebug_(showDebug), previous_(HostConsole::Install(this)) {}
  ~StandardErrorConsole() override { HostConsole::Install(previous_); }
  StandardErrorConsole(const StandardErrorConsole&) = delete;
  StandardErrorConsole& operator=(const StandardErrorConsole&) = delete;

  void print(const String& line) override {
    if (showDebug_ || line.rfind("Morvo Debug: ", 0) != 0) std::cerr << line << '\n';
  }
  void statusText(const String&) override {}
  void statusBar(Int32) override {}
  void statusSpin() override {}
  void statusClear() override {}
  void specialEvent(Int32, UInt64, UInt64) override {}

 private:
  bool showDebug_;
  HostConsole* previous_;
};
