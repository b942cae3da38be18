// morvo about and morvo docs-url: the plug-in's menu commands About and Website run in the
// stand-in host, their console on standard output. About prints what its dialog shows; docs-url
// prints the documentation address that Website hands to the browser.
#include <iostream>

#include "commands/Commands.h"
#include "commands/PluginSession.h"
#include "console/StreamConsole.h"
#include "host/CommandData.h"
#include "host/PluginRegistry.h"
#include "source/PluginIds.h"
#include "source/Website.h"

namespace {

// Runs a registered command with the host's console on standard output; 0 when it succeeded.
int runCommand(Int32 id) {
  const PluginEntry* entry = PluginSession::ready() ? PluginRegistry::Find(id) : nullptr;
  if (!entry || !entry->command) return 1;
  StreamConsole out(std::cout);
  HostConsole* previous = HostConsole::Install(&out);
  const Bool done = entry->command->Execute(nullptr);
  HostConsole::Install(previous);
  return done ? 0 : 1;
}

}  // namespace

void addAboutCommand(CLI::App& app, CommandResult& result) {
  CLI::App* about = app.add_subcommand("about", "Show the plug-in's About dialog as text");
  about->callback([&result] { result.exitCode = runCommand(ID_ABOUT); });
}

void addDocsUrlCommand(CLI::App& app, CommandResult& result) {
  CLI::App* docs = app.add_subcommand(
      "docs-url", "Print the address of the web documentation that the Website command opens");
  docs->callback([&result] {
    const String address = PluginSession::ready() ? Website::address() : String();
    if (address.empty()) {
      std::cerr << "Morvo Error: the plug-in's resources name no documentation address\n";
      result.exitCode = 1;
      return;
    }
    std::cout << address << '\n';
  });
}
