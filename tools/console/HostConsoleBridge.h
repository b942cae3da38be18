// HostConsoleBridge: the command's side of the host's console. Console lines go to the command's
// own message handler at the level their prefix names ("Morvo Error: " and so on; other lines are
// plain), the status bar to its progress display. It keeps the handlers it was made with, since
// the plug-in rebinds the library's sinks to the host's console at start and a bridge back through
// the sinks would go round in a circle. Installed for its lifetime.
#pragma once

#include "core/MessageHandler.h"
#include "core/ProgressHandler.h"
#include "host/HostConsole.h"

class HostConsoleBridge : public HostConsole {
 public:
  HostConsoleBridge(mv::MessageHandler& messages, mv::ProgressHandler& progress)
      : messages_(messages), progress_(progress), previous_(Install(this)) {}
  ~HostConsoleBridge() override { Install(previous_); }
  HostConsoleBridge(const HostConsoleBridge&) = delete;
  HostConsoleBridge& operator=(const HostConsoleBridge&) = delete;

  void print(const String& line) override;
  void statusText(const String& text) override;
  void statusBar(Int32 percent) override;
  void statusSpin() override;
  void statusClear() override;
  void specialEvent(Int32, UInt64, UInt64) override {}

 private:
  mv::MessageHandler& messages_;
  mv::ProgressHandler& progress_;
  HostConsole* previous_;
  bool started_ = false;
};
