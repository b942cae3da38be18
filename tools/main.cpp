// morvo: the command-line face of the library.
#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

#include "MorvoVersion.h"
#include "commands/Commands.h"
#include "console/ConsoleMessageHandler.h"
#include "console/ConsoleProgressHandler.h"
#include "core/MessageSink.h"
#include "core/ProgressSink.h"

int main(int argc, char** argv) {
  ConsoleMessageHandler messages(std::cerr);
  ConsoleProgressHandler progress(std::cerr, ConsoleProgressHandler::isStandardErrorTerminal());
  mv::messageSink.handler = &messages;
  mv::progressSink.handler = &progress;

  CLI::App app{"Morvo " MORVO_VERSION ": a procedural plant modeller", "morvo"};
  app.set_version_flag("--version", "morvo " MORVO_VERSION);
  app.require_subcommand(0, 1);
  CommandResult result;
  addCurveCommand(app, result);
  addPrimitivesCommand(app, result);
  addDemoCommand(app, result);
  addInfoCommand(app, result);
  addRenderCommand(app, result);
  addGrassCommand(app, result);
  addAboutCommand(app, result);
  addDocsUrlCommand(app, result);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  } catch (const std::exception& e) {
    mv::messageSink.error(e.what());
    return 1;
  }
  if (app.get_subcommands().empty()) std::cout << app.help();
  return result.exitCode;
}
