#include "console/HostConsoleBridge.h"

namespace {

bool startsWith(const String& line, const String& prefix) { return line.rfind(prefix, 0) == 0; }

}  // namespace

void HostConsoleBridge::print(const String& line) {
  static const String kError = "Morvo Error: ", kWarning = "Morvo Warning: ",
                      kInfo = "Morvo Info: ", kDebug = "Morvo Debug: ";
  if (startsWith(line, kError)) return messages_.error(line.substr(kError.size()));
  if (startsWith(line, kWarning)) return messages_.warning(line.substr(kWarning.size()));
  if (startsWith(line, kInfo)) return messages_.info(line.substr(kInfo.size()));
  if (startsWith(line, kDebug)) return messages_.debug(line.substr(kDebug.size()));
  messages_.print(line);
}

void HostConsoleBridge::statusText(const String& text) { messages_.info(text); }

void HostConsoleBridge::statusBar(Int32 percent) {
  if (!started_) progress_.start();
  started_ = true;
  progress_.setProgress(percent / 100.0);
}

void HostConsoleBridge::statusSpin() { progress_.spin(); }

void HostConsoleBridge::statusClear() {
  if (started_) progress_.finish();
  started_ = false;
}
