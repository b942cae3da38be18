// morvo set plant.morvo PATH.parameter=VALUE ...: changes parameters of a document's objects by
// name and saves the document in place (or to -o). Nothing is written when any change fails.
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

bool applyAssignment(BaseDocument* document, const std::string& assignment) {
  const size_t equals = assignment.find('=');
  ParameterAddress address;
  std::string error = "expected PATH.parameter=VALUE: " + assignment;
  if (equals == std::string::npos ||
      !resolveParameter(document, assignment.substr(0, equals), address, error) ||
      !writeParameter(document, address, assignment.substr(equals + 1), error)) {
    mv::messageSink.error("set: " + error);
    return false;
  }
  return true;
}

int setParameters(const std::string& input, const std::vector<std::string>& assignments,
                  const std::string& output) {
  if (!PluginSession::ready()) return 1;
  HostConsoleBridge console;
  std::unique_ptr<BaseDocument> document(DocumentFile::Load(Filename(input)));
  if (!document) return 1;
  for (const std::string& assignment : assignments) {
    if (!applyAssignment(document.get(), assignment)) return 1;
  }
  return DocumentFile::Save(document.get(), Filename(output.empty() ? input : output)) ? 0 : 1;
}

}  // namespace

void addSetCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command = app.add_subcommand("set", "Change parameters of a document's objects");
  auto input = std::make_shared<std::string>();
  auto assignments = std::make_shared<std::vector<std::string>>();
  auto output = std::make_shared<std::string>();
  command->add_option("document", *input, "The document, .morvo")->required();
  command
      ->add_option("assignments", *assignments,
                   "PATH.parameter=VALUE, e.g. Branch.nodeNumber=12 or "
                   "Branch.thickness.points=0:1,1:0.2")
      ->required();
  command->add_option("-o,--output", *output, "Write the changed document here instead");
  command->callback([input, assignments, output, &result] {
    result.exitCode = setParameters(*input, *assignments, *output);
  });
}
