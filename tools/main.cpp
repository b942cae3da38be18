// morvo: the command-line face of the library. Exit status 0 on success, 1 when a command
// fails, 2 for a usage error (an unknown command or option, a bad option value).
#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "MorvoVersion.h"
#include "commands/Commands.h"
#include "console/ConsoleMessageHandler.h"
#include "console/ConsoleProgressHandler.h"
#include "console/HandlerScope.h"
#include "console/HostConsoleBridge.h"
#include "console/NearestName.h"
#include "core/MessageSink.h"

namespace {

constexpr int kFailure = 1;
constexpr int kUsageError = 2;

std::vector<std::string> commandNames(CLI::App& app, bool withHidden) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
    if (withHidden || !command->get_group().empty()) names.push_back(command->get_name());
  }
  return names;
}

// The first word that is no option names the command; false, after a message, when it names
// none of them.
bool namesKnownCommand(CLI::App& app, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word.empty() || word[0] == '-') continue;
    const std::vector<std::string> all = commandNames(app, true);
    if (std::find(all.begin(), all.end(), word) != all.end()) return true;
    mv::messageSink.error("unknown command \"" + word + "\"; did you mean \"" +
                          nearestName(word, commandNames(app, false)) + "\"?");
    return false;
  }
  return true;
}

void addVerbosityFlags(CLI::App& app, ConsoleMessageHandler& messages,
                       ConsoleProgressHandler& progress) {
  app.add_flag_function(
      "-v,--verbose",
      [&messages](std::int64_t count) {
        messages.setVerbosity(count > 1 ? ConsoleMessageHandler::Debug
                                        : ConsoleMessageHandler::Verbose);
      },
      "Also show the library's plain lines (file versions); twice: debug lines");
  app.add_flag_function(
      "-q,--quiet",
      [&messages, &progress](std::int64_t) {
        messages.setVerbosity(ConsoleMessageHandler::Quiet);
        progress.hide();
      },
      "Show errors only, and no progress bar");
}

// Parses and runs the command; every failure ends here as one error line and its exit status.
int run(CLI::App& app, int argc, char** argv, const CommandResult& result) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    if (e.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(e);
    mv::messageSink.error(std::string(e.what()) + " (see morvo --help)");
    return kUsageError;
  } catch (const std::bad_alloc&) {
    mv::messageSink.error("out of memory");
    return kFailure;
  } catch (const std::exception& e) {
    mv::messageSink.error(e.what());
    return kFailure;
  } catch (...) {
    mv::messageSink.error("unexpected failure");
    return kFailure;
  }
  if (app.get_subcommands().empty()) std::cout << app.help();
  return result.exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  ConsoleProgressHandler progress(std::cerr, ConsoleProgressHandler::isStandardErrorTerminal());
  ConsoleMessageHandler messages(std::cerr, ConsoleMessageHandler::Normal, &progress);
  HandlerScope handlers(&messages, &progress);
  HostConsoleBridge hostConsole(messages, progress);

  CLI::App app{"Morvo " MORVO_VERSION ": a procedural plant modeller", "morvo"};
  app.set_version_flag("--version", "morvo " MORVO_VERSION);
  app.require_subcommand(0, 1);
  app.fallthrough();
  addVerbosityFlags(app, messages, progress);
  CommandResult result;
  addCurveCommand(app, result);
  addCurveEditCommand(app, result);
  addPrimitivesCommand(app, result);
  addInfoCommand(app, result);
  addRenderCommand(app, result);
  addGrassCommand(app, result);
  addAboutCommand(app, result);
  addDocsUrlCommand(app, result);
  addImportCommand(app, result);
  addNewCommand(app, result);
  addTreeCommand(app, result);
  addGetCommand(app, result);
  addSetCommand(app, result);

  if (!namesKnownCommand(app, argc, argv)) return kUsageError;
  return run(app, argc, argv, result);
}
