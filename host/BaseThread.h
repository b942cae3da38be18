// BaseThread: the thread an evaluation runs on, as far as a plug-in sees it: whether the user
// or the host has asked it to stop. A program sets the break from outside (its cancellation).
#pragma once

#include <atomic>

#include "host/HostTypes.h"

class BaseThread {
 public:
  virtual ~BaseThread() = default;
  virtual Bool TestBreak() { return breakRequested_.load(); }
  void RequestBreak() { breakRequested_.store(true); }
  void ClearBreak() { breakRequested_.store(false); }

 private:
  std::atomic<bool> breakRequested_{false};
};
