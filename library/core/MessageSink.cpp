#include "core/MessageSink.h"

namespace mv {

MessageSink messageSink;

void MessageSink::error(const std::string& text) const {
  if (handler) handler->error(text);
}

void MessageSink::warning(const std::string& text) const {
  if (handler) handler->warning(text);
}

void MessageSink::info(const std::string& text) const {
  if (handler) handler->info(text);
}

void MessageSink::debug(const std::string& text) const {
  if (handler) handler->debug(text);
}

void MessageSink::print(const std::string& text) const {
  if (handler) handler->print(text);
}

}  // namespace mv
