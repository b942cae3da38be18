#include "core/ProgressSink.h"

namespace mv {

ProgressSink progressSink;

void ProgressSink::start() const {
  if (handler) handler->start();
}

void ProgressSink::finish() const {
  if (handler) handler->finish();
}

void ProgressSink::spin() const {
  if (handler) handler->spin();
}

void ProgressSink::setProgress(double value) const {
  if (handler) handler->setProgress(value);
}

bool ProgressSink::isCancelled() const { return handler && handler->isCancelled(); }

}  // namespace mv
