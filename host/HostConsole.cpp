#include "host/HostConsole.h"

#include <chrono>

namespace {
HostConsole*& installed() {
  static HostConsole* console = nullptr;
  return console;
}
}  // namespace

HostConsole* HostConsole::Install(HostConsole* console) {
  HostConsole* before = installed();
  installed() = console;
  return before;
}

HostConsole* HostConsole::Current() { return installed(); }

void GePrint(const String& line) {
  if (HostConsole* console = installed()) console->print(line);
}

void StatusSetText(const String& text) {
  if (HostConsole* console = installed()) console->statusText(text);
}

void StatusSetBar(Int32 percent) {
  if (HostConsole* console = installed()) console->statusBar(percent);
}

void StatusSetSpin() {
  if (HostConsole* console = installed()) console->statusSpin();
}

void StatusClear() {
  if (HostConsole* console = installed()) console->statusClear();
}

Int32 GeGetTimer() {
  using Clock = std::chrono::steady_clock;
  static const Clock::time_point start = Clock::now();
  auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
  return static_cast<Int32>(elapsed.count());
}

Bool SpecialEventAdd(Int32 id, UInt64 p1, UInt64 p2) {
  HostConsole* console = installed();
  if (!console) return false;
  console->specialEvent(id, p1, p2);
  return true;
}
