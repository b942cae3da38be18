#include "console/ConsoleMessageHandler.h"

void ConsoleMessageHandler::line(Verbosity least, const char* prefix, const std::string& text) {
  if (verbosity_ < least) return;
  if (bar_) bar_->clearLine();
  out_ << prefix << text << '\n';
  out_.flush();
}
