// HandlerScope: installs a message handler and a progress handler in the library's sinks for
// the life of the object and puts the previous ones back on every way out, an exception
// included, so that the sinks never point at a handler that is gone.
#pragma once

#include "core/MessageHandler.h"
#include "core/MessageSink.h"
#include "core/ProgressHandler.h"
#include "core/ProgressSink.h"

class HandlerScope {
 public:
  HandlerScope(mv::MessageHandler* messages, mv::ProgressHandler* progress)
      : previousMessages_(mv::messageSink.handler), previousProgress_(mv::progressSink.handler) {
    mv::messageSink.handler = messages;
    mv::progressSink.handler = progress;
  }
  ~HandlerScope() {
    mv::messageSink.handler = previousMessages_;
    mv::progressSink.handler = previousProgress_;
  }
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;

 private:
  mv::MessageHandler* previousMessages_;
  mv::ProgressHandler* previousProgress_;
};
