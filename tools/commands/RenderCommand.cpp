// morvo render: loads a scene file into the classic scene graph, evaluates it and writes the mesh
// as OBJ (with MTL) or binary glTF. What the load had to skip is said on standard error; the
// exit status is non-zero only when nothing could be loaded or the file could not be written.
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/DocumentRender.h"
#include "commands/SceneRender.h"
#include "core/MessageSink.h"
#include "export/ExportMaterial.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"

namespace {

// Passes every message on and turns the load's notes about what it skipped, which it gives at
// debug level, into warnings.
class SkipReporter : public mv::MessageHandler {
 public:
  explicit SkipReporter(mv::MessageHandler* next) : next_(next) {}

  void error(const std::string& text) override { forward(&mv::MessageHandler::error, text); }
  void warning(const std::string& text) override { forward(&mv::MessageHandler::warning, text); }
  void info(const std::string& text) override { forward(&mv::MessageHandler::info, text); }
  void print(const std::string& text) override { forward(&mv::MessageHandler::print, text); }
  void debug(const std::string& text) override;

 private:
  void forward(void (mv::MessageHandler::*kind)(const std::string&), const std::string& text) {
    if (next_) (next_->*kind)(text);
  }

  mv::MessageHandler* next_;
  std::string lastLink_;
};

void SkipReporter::debug(const std::string& text) {
  forward(&mv::MessageHandler::debug, text);
  if (text.rfind("insertUnder(", 0) == 0) lastLink_ = text;
  if (text.rfind("Unknown Component Type", 0) == 0) {
    warning(text + ": loaded as a plain group");
  } else if (text == "object not found in node list" || text == "parent not found in node list" ||
             text == "insertUnder Error") {
    warning("link skipped, " + lastLink_ + ": " + text);
  }
}

bool endsWith(const std::string& text, const std::string& suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// Entry k describes material index k; indices the file never used keep a neutral grey.
std::vector<mv::ExportMaterial> exportMaterials(const std::map<int, mv::MvrMaterial>& materials) {
  std::vector<mv::ExportMaterial> result;
  for (const auto& [index, material] : materials) {
    if (index < 0) continue;
    if (result.size() <= static_cast<size_t>(index))
      result.resize(index + 1, {"Default", 0.6, 0.6, 0.6, ""});
    result[index] = {material.name, material.diffuse.red, material.diffuse.green,
                     material.diffuse.blue, material.textureFile};
  }
  return result;
}

bool writeMesh(const RenderedScene& scene, const std::string& output) {
  const std::vector<mv::ExportMaterial> materials = exportMaterials(scene.materials);
  if (endsWith(output, ".obj")) return mv::ObjWriter(materials).write(scene.mesh, output);
  return mv::GlbWriter(materials).write(scene.mesh, output);
}

int render(const std::string& input, const std::string& output, double unit, bool printTree) {
  if (!endsWith(output, ".obj") && !endsWith(output, ".glb")) {
    mv::messageSink.error("render: the output must end in .obj or .glb: " + output);
    return 2;
  }
  if (endsWith(input, ".morvo")) return renderDocument(input, output);
  if (!std::ifstream(input)) {
    mv::messageSink.error("render: cannot open \"" + input + "\"");
    return 1;
  }
  RenderedScene scene;
  {
    SkipReporter reporter(mv::messageSink.handler);
    mv::MessageHandler* previous = mv::messageSink.handler;
    mv::messageSink.handler = &reporter;
    renderScene(input, unit, printTree, scene);
    mv::messageSink.handler = previous;
  }
  if (scene.topObjects == 0) {
    mv::messageSink.error("render: nothing could be loaded from \"" + input + "\"");
    return 1;
  }
  if (!scene.loaded)
    mv::messageSink.warning("render: the load stopped early; writing what it made");
  if (!writeMesh(scene, output)) return 1;
  mv::messageSink.info("render: " + std::to_string(scene.mesh.getPolygonCount()) + " polygons, " +
                       std::to_string(scene.mesh.getPointCount()) + " points written to " + output);
  return 0;
}

}  // namespace

void addRenderCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command = app.add_subcommand(
      "render", "Render a scene file (.mvr) or a document (.morvo) to a mesh file (.obj or .glb)");
  auto input = std::make_shared<std::string>();
  auto output = std::make_shared<std::string>();
  auto unit = std::make_shared<double>(1.0);
  auto printTree = std::make_shared<bool>(false);
  command->add_option("file", *input, "the scene file or document")->required();
  command->add_option("-o,--output", *output, "the mesh file to write, .obj or .glb")->required();
  command->add_option("--unit", *unit,
                      "import scale: the size of one unit of the file (default 1)");
  command->add_flag("--tree", *printTree, "print the loaded scene graph first");
  command->callback([=, &result] { result.exitCode = render(*input, *output, *unit, *printTree); });
}
