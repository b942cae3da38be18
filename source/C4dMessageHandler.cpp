#include "source/C4dMessageHandler.h"

#include "host/HostConsole.h"

void C4dMessageHandler::error(const std::string& text) { GePrint("Morvo Error: " + text); }

void C4dMessageHandler::warning(const std::string& text) { GePrint("Morvo Warning: " + text); }

void C4dMessageHandler::info(const std::string& text) { GePrint("Morvo Info: " + text); }

void C4dMessageHandler::debug(const std::string& text) { GePrint("Morvo Debug: " + text); }

void C4dMessageHandler::print(const std::string& text) { GePrint(text); }
