// C4dMessageHandler: the library's messages on the host's console, one line each with the
// prefix of its kind.
#pragma once

#include <string>

#include "core/MessageHandler.h"

class C4dMessageHandler : public mv::MessageHandler {
 public:
  void error(const std::string& text) override;
  void warning(const std::string& text) override;
  void info(const std::string& text) override;
  void debug(const std::string& text) override;
  void print(const std::string& text) override;
};
