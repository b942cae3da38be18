// morvo curve-edit plant.morvo PATH.parameter --events FILE: plays recorded edits (clicks, drags,
// menu choices) on a curve parameter of a document, as a user would make them in the curve
// editor, and saves the document in place (or to -o). Prints the edited curve, and with --png
// draws it. Nothing is
// written when the parameter is no curve or the script cannot be played.
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands/Commands.h"
#include "commands/CurvePicture.h"
#include "commands/DocumentParameters.h"
#include "commands/EditScriptFile.h"
#include "commands/PluginSession.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "source/CurveDataType.h"

namespace {

struct EditOptions {
  std::string document, parameter, events, output, unit = "none", png;
};

// The curve parameter at text, its part left empty.
ParameterAddress curveParameter(BaseDocument* document, const std::string& text) {
  ParameterAddress address;
  std::string error;
  if (!resolveParameter(document, text, address, error)) throw std::runtime_error(error);
  if (address.kind != std::to_string(CURVE_TYPE_ID) || !address.part.empty()) {
    throw std::runtime_error(text + " is no curve parameter");
  }
  return address;
}

int editCurve(const EditOptions& options) {
  if (!PluginSession::ready()) return 1;
  std::unique_ptr<BaseDocument> document(DocumentFile::Load(Filename(options.document)));
  if (!document) return 1;
  const ParameterAddress address = curveParameter(document.get(), options.parameter);
  BaseContainer* data = address.object->GetDataInstance();
  const auto* stored =
      static_cast<const CurveDataType*>(data->GetCustomDataType(address.id, CURVE_TYPE_ID));
  CurveDataType curve = stored ? *stored : CurveDataType();
  playEditScriptFile(curve, options.events, curveUnitNamed(options.unit));
  data->SetData(address.id, GeData(CURVE_TYPE_ID, curve));
  if (!DocumentFile::Save(document.get(),
                          Filename(options.output.empty() ? options.document : options.output))) {
    return 1;
  }
  std::cout << readParameter(document.get(), address) << "\n";
  if (!options.png.empty()) {
    CurvePicture picture;
    picture.path = options.png;
    picture.unit = curveUnitNamed(options.unit);
    picture.draw(curve);
  }
  return 0;
}

}  // namespace

void addCurveEditCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command =
      app.add_subcommand("curve-edit", "Play recorded edits on a curve parameter of a document");
  auto options = std::make_shared<EditOptions>();
  command->add_option("document", options->document, "The document, .morvo")->required();
  command->add_option("parameter", options->parameter, "PATH.parameter, e.g. Tree/Branch.thickness")
      ->required();
  command
      ->add_option("--events", options->events,
                   "The edits: one step a line, size W H, click X Y [ctrl] [extend], "
                   "drag X Y X1 Y1 ... [extend], menu X Y ENTRY")
      ->required();
  command->add_option("--unit", options->unit, "Unit of the values as the editor shows them")
      ->check(CLI::IsMember({"none", "percent", "degree", "meter"}))
      ->capture_default_str();
  command->add_option("-o,--output", options->output, "Write the changed document here instead");
  command->add_option("--png", options->png, "Also draw the edited curve as its editor does");
  command->callback([options, &result] { result.exitCode = editCurve(*options); });
}
