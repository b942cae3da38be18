// C4dProgressHandler: the library's progress on the host's status bar. It never cancels: the
// driver's cancellation goes through the host's thread instead.
#pragma once

#include "core/ProgressHandler.h"

class C4dProgressHandler : public mv::ProgressHandler {
 public:
  void start() override {}
  void finish() override;
  void spin() override;
  void setProgress(double value) override;
  bool isCancelled() override { return false; }
};
