// HostConsoleBridge: the command's side of the host's console: console lines go to the message
// handler (standard error), the status bar to the progress display. Installed for its lifetime.
#pragma once

#include "host/HostConsole.h"

class HostConsoleBridge : public HostConsole {
 public:
  HostConsoleBridge() : previous_(Install(this)) {}
  ~HostConsoleBridge() override { Install(previous_); }

  void print(const String& line) override;
  void statusText(const String& text) override;
  void statusBar(Int32 percent) override;
  void statusSpin() override;
  void statusClear() override;
  void specialEvent(Int32, UInt64, UInt64) override {}

 private:
  HostConsole* previous_;
  bool started_ = false;
};
