#include "console/ConsoleMessageHandler.h"

void ConsoleMessageHandler::debug(const std::string& text) {
  if (showDebug_) line("Morvo Debug: ", text);
}

void ConsoleMessageHandler::line(const char* prefix, const std::string& text) {
  out_ << prefix << text << '\n';
  out_.flush();
}
