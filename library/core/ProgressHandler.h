// ProgressHandler: where long jobs report how far they are, and ask whether to stop.
#pragma once

namespace mv {

class ProgressHandler {
 public:
  virtual ~ProgressHandler() = default;
  virtual void start() = 0;
  virtual void finish() = 0;                   // the job is over: clear the display
  virtual void spin() = 0;                     // activity without a value
  virtual void setProgress(double value) = 0;  // 0.0 to 1.0 of the whole job
  virtual bool isCancelled() = 0;
};

}  // namespace mv
