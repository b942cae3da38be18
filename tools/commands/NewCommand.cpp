// morvo new KIND -o plant.morvo: a document holding one object of a kind, as the menu makes it:
// a Branch with its circle profile and path, a Phyllotaxis with its arc, a Hydra with a sphere.
#include <map>
#include <memory>
#include <string>

#include "commands/Commands.h"
#include "commands/PluginSession.h"
#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "host/ActiveDocument.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "host/PluginRegistry.h"
#include "source/PluginIds.h"

namespace {

const std::map<std::string, Int32>& kinds() {
  static const std::map<std::string, Int32> table = {
      {"branch", ID_BRANCH_OBJECT},       {"phyllotaxis", ID_PHYLLOTAXIS_OBJECT},
      {"hydra", ID_HYDRA_OBJECT},         {"variation", ID_VARIATION_OBJECT},
      {"tropism", ID_TROPISM_OBJECT},     {"deviation", ID_DEVIATION_OBJECT},
      {"curvature", ID_CURVATURE_SPLINE},
  };
  return table;
}

// The name the menu shows for a class, without the prefix that places it in the menu.
String menuName(Int32 id) {
  const PluginEntry* entry = PluginRegistry::Find(id);
  if (entry == nullptr) return "";
  size_t start = 0;
  if (entry->name.compare(0, 2, "#$") == 0) {
    start = entry->name.find_first_not_of("0123456789-", 2);
  }
  return start == String::npos ? "" : entry->name.substr(start);
}

int writeNewDocument(const std::string& kind, const std::string& output) {
  if (!PluginSession::ready()) return 1;
  HostConsoleBridge console;
  BaseDocument document;
  SetActiveDocument(&document);
  BaseObject* object = BaseObject::Alloc(kinds().at(kind));
  if (object == nullptr) {
    mv::messageSink.error("new: the " + kind + " object could not be made");
    return 1;
  }
  object->SetName(menuName(kinds().at(kind)));
  if (!object->Message(MSG_MENUPREPARE, nullptr)) {
    mv::messageSink.warning("new: the " + kind + " object lacks some of its starter children");
  }
  document.InsertObject(object, nullptr, nullptr);
  SetActiveDocument(nullptr);
  if (!DocumentFile::Save(&document, Filename(output))) return 1;
  mv::messageSink.info("new: " + kind + " written to " + output);
  return 0;
}

}  // namespace

void addNewCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command =
      app.add_subcommand("new", "Write a document with one growth object as the menu makes it");
  auto kind = std::make_shared<std::string>();
  auto output = std::make_shared<std::string>();
  command
      ->add_option("kind", *kind,
                   "branch, phyllotaxis, hydra, variation, tropism, deviation or curvature")
      ->required()
      ->check(CLI::IsMember(
          {"branch", "phyllotaxis", "hydra", "variation", "tropism", "deviation", "curvature"}));
  command->add_option("-o,--output", *output, "The document to write, .morvo")->required();
  command->callback(
      [kind, output, &result] { result.exitCode = writeNewDocument(*kind, *output); });
}
