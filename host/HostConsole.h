// HostConsole: where the host's console lines, status line and special events go. A program
// installs one (the morvo command prints to standard error and draws a progress bar); without
// one, everything is dropped. GePrint and the Status calls below forward to it.
#pragma once

#include "host/HostTypes.h"

class HostConsole {
 public:
  virtual ~HostConsole() = default;
  virtual void print(const String& line) = 0;
  virtual void statusText(const String& text) = 0;
  virtual void statusBar(Int32 percent) = 0;
  virtual void statusSpin() = 0;
  virtual void statusClear() = 0;
  virtual void specialEvent(Int32 id, UInt64 p1, UInt64 p2) = 0;

  // Installs the console (not owned) and gives back the one before; null drops everything.
  static HostConsole* Install(HostConsole* console);
  static HostConsole* Current();
};

void GePrint(const String& line);
void StatusSetText(const String& text);
void StatusSetBar(Int32 percent);
void StatusSetSpin();
void StatusClear();
// Milliseconds since the first call of any timer in the process, steady.
Int32 GeGetTimer();
Bool SpecialEventAdd(Int32 id, UInt64 p1 = 0, UInt64 p2 = 0);
