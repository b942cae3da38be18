// ProgressSink: the process-wide handle of the progress display. Forwards to the installed
// ProgressHandler; with none installed every call is dropped and isCancelled answers false.
#pragma once

#include "core/ProgressHandler.h"

namespace mv {

class ProgressSink {
 public:
  ProgressHandler* handler = nullptr;  // not owned

  void start() const;
  void finish() const;
  void spin() const;
  void setProgress(double value) const;
  bool isCancelled() const;
};

extern ProgressSink progressSink;

}  // namespace mv
