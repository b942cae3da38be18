// morvo get plant.morvo PATH.parameter ...: prints parameters of a document's objects by name,
// one "PATH.parameter = value" line each; a whole curve gives its points, limits and expression.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/DocumentParameters.h"
#include "commands/PluginSession.h"
#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "host/BaseDocument.h"
#include "host/DocumentFile.h"

namespace {

int printParameters(const std::string& input, const std::vector<std::string>& names) {
  if (!PluginSession::ready()) return 1;
  HostConsoleBridge console;
  std::unique_ptr<BaseDocument> document(DocumentFile::Load(Filename(input)));
  if (!document) return 1;
  int exitCode = 0;
  for (const std::string& name : names) {
    ParameterAddress address;
    std::string error;
    if (!resolveParameter(document.get(), name, address, error)) {
      mv::messageSink.error("get: " + error);
      exitCode = 1;
      continue;
    }
    std::cout << name << " = " << readParameter(document.get(), address) << "\n";
  }
  return exitCode;
}

}  // namespace

void addGetCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command = app.add_subcommand("get", "Print parameters of a document's objects");
  auto input = std::make_shared<std::string>();
  auto names = std::make_shared<std::vector<std::string>>();
  command->add_option("document", *input, "The document, .morvo")->required();
  command->add_option("parameters", *names, "PATH.parameter, e.g. Branch.nodeNumber")->required();
  command->callback([input, names, &result] { result.exitCode = printParameters(*input, *names); });
}
