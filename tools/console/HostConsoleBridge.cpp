#include "console/HostConsoleBridge.h"

#include "core/MessageSink.h"
#include "core/ProgressSink.h"

void HostConsoleBridge::print(const String& line) { mv::messageSink.print(line); }

void HostConsoleBridge::statusText(const String& text) { mv::messageSink.info(text); }

void HostConsoleBridge::statusBar(Int32 percent) {
  if (!started_) mv::progressSink.start();
  started_ = true;
  mv::progressSink.setProgress(percent / 100.0);
}

void HostConsoleBridge::statusSpin() { mv::progressSink.spin(); }

void HostConsoleBridge::statusClear() {
  if (started_) mv::progressSink.finish();
  started_ = false;
}
