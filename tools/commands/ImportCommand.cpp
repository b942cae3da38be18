// morvo import: opens a classic scene file as the host's scene loader does and saves the document
// it gives. In polygon mode the scene is one polygon object with its materials; in generator mode
// it is a hierarchy of growth objects that stays editable with morvo set and renders with morvo
// render. The exit status is non-zero when the file is no classic scene, nothing was imported or
// the document could not be written.
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands/Commands.h"
#include "commands/PluginSession.h"
#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "host/PluginLoader.h"
#include "host/PluginRegistry.h"
#include "host/SceneLoaderData.h"
#include "source/Main.h"
#include "source/MvrLoader.h"
#include "source/PluginIds.h"

namespace {

struct ImportOptions {
  std::string input, output, mode = "generators";
  double unit = 100.0;
  bool treeKnotPath = false, hornKnotPath = false, fractionalCurvature = false;
  bool noMaterials = false;
};

// The first bytes of the file, as the host offers them to a scene loader.
std::string probeOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  char probe[64] = {};
  file.read(probe, sizeof probe);
  return std::string(probe, static_cast<size_t>(file.gcount()));
}

int countObjects(const BaseObject* first) {
  int count = 0;
  for (const BaseObject* object = first; object; object = object->GetNext())
    count += 1 + countObjects(object->GetDown());
  return count;
}

void checkPaths(const ImportOptions& options) {
  namespace fs = std::filesystem;
  if (fs::path(options.output).extension() != ".morvo")
    throw std::runtime_error("the document must be written to a .morvo file: " + options.output);
  std::error_code error;
  if (fs::equivalent(options.input, options.output, error))
    throw std::runtime_error("the document would overwrite its scene file: " + options.output);
}

void configure(BaseContainer& settings, const ImportOptions& options) {
  settings.SetLong(MvrLoader::IdImportMode, options.mode == "polygons" ? MvrLoader::ModePolygons
                                                                       : MvrLoader::ModeGenerators);
  settings.SetReal(MvrLoader::IdUnit, options.unit);
  settings.SetBool(MvrLoader::IdTreeKnotPath, options.treeKnotPath);
  settings.SetBool(MvrLoader::IdHornKnotPath, options.hornKnotPath);
  settings.SetBool(MvrLoader::IdFractionalCurvature, options.fractionalCurvature);
}

// The scene loader as the host finds it in its registry, with a node holding its settings.
int importInto(BaseDocument* document, const ImportOptions& options) {
  const PluginEntry* entry = PluginRegistry::Find(ID_MVR_LOADER);
  if (!entry || !entry->allocator) throw std::runtime_error("the scene loader is not registered");
  std::unique_ptr<NodeData> data(entry->allocator());
  auto* loader = static_cast<SceneLoaderData*>(data.get());
  BaseList2D node(ID_MVR_LOADER);
  if (!loader->Init(&node)) throw std::runtime_error("the scene loader did not start");
  configure(*node.GetDataInstance(), options);
  std::string probe = probeOf(options.input);
  const Filename file(options.input);
  if (!loader->Identify(&node, file, reinterpret_cast<UChar*>(probe.data()),
                        static_cast<Int32>(probe.size())))
    throw std::runtime_error("not a classic scene file (.mvr, \"Version 0.93\"): " + options.input);
  const Int32 filter = SCENEFILTER_OBJECTS | (options.noMaterials ? 0 : SCENEFILTER_MATERIALS);
  return loader->Load(&node, file, document, filter, nullptr, nullptr);
}

void runImport(const ImportOptions& options, CommandResult& result) {
  checkPaths(options);
  HostConsoleBridge console;
  if (!PluginSession::ready()) {
    result.exitCode = 1;
    return;
  }
  BaseDocument* document = BaseDocument::Alloc();
  const Int32 code = importInto(document, options);
  const int objects = countObjects(document->GetFirstObject());
  result.exitCode = 1;
  if (code != FILEERROR_NONE) {
    GePrint("Morvo Error: the scene could not be imported (file error " + std::to_string(code) +
            ")");
  } else if (objects == 0) {
    GePrint("Morvo Error: the scene holds nothing to import: " + options.input);
  } else if (DocumentFile::Save(document, Filename(options.output))) {
    GePrint("imported " + std::to_string(objects) + " objects into " + options.output);
    result.exitCode = 0;
  }
  BaseDocument::Free(document);
}

}  // namespace

void addImportCommand(CLI::App& app, CommandResult& result) {
  auto options = std::make_shared<ImportOptions>();
  CLI::App* command = app.add_subcommand(
      "import",
      "Open a scene file (.mvr) as a document (.morvo): one polygon object, or editable "
      "growth objects");
  command->add_option("file", options->input, "scene file")->required()->check(CLI::ExistingFile);
  command->add_option("-o,--output", options->output, "document to write (.morvo)")->required();
  command->add_option("--mode", options->mode, "polygons or generators (the default)")
      ->check(CLI::IsMember({"polygons", "generators"}));
  command->add_option("--unit", options->unit, "scale of the import (100)")
      ->check(CLI::Range(0.0, 10000.0));
  command->add_flag("--tree-knot-path", options->treeKnotPath,
                    "a tree's path from its trunk points rather than its frames");
  command->add_flag("--horn-knot-path", options->hornKnotPath,
                    "a horn's path through its knots rather than samples of it");
  command->add_flag("--fractional-curvature", options->fractionalCurvature,
                    "curvature splines keep a fractional last step");
  command->add_flag("--no-materials", options->noMaterials, "leave the materials out");
  command->callback([options, &result] { runImport(*options, result); });
}
