// morvo render: loads a scene file into the classic scene graph, evaluates it and writes the mesh
// as OBJ (with MTL) or binary glTF. What the load had to skip is said on standard error; the
// exit status is non-zero only when nothing could be loaded or the file could not be written.
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/SceneRender.h"
#include "core/MessageSink.h"
#include "export/ExportMaterial.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"

namespace {

// One warning per thing the load passed over.
void reportSkips(const std::vector<mv::MvrSkip>& skipped) {
  for (const mv::MvrSkip& skip : skipped) {
    switch (skip.kind) {
      case mv::MvrSkip::MissingLink:
        mv::messageSink.warning("\"" + skip.object + "\" links \"" + skip.target +
                                "\", which is no object of the scene: skipped");
        break;
      case mv::MvrSkip::UnknownType:
        mv::messageSink.warning("\"" + skip.object + "\" is of the unknown type \"" + skip.target +
                                "\": loaded as a plain group");
        break;
      case mv::MvrSkip::FailedLink:
        mv::messageSink.warning("link of \"" + skip.object + "\" under \"" +
                                (skip.target.empty() ? "the top" : skip.target) + "\" skipped");
        break;
    }
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
  if (!std::ifstream(input)) {
    mv::messageSink.error("render: cannot open \"" + input + "\"");
    return 1;
  }
  RenderedScene scene;
  renderScene(input, unit, printTree, scene);
  reportSkips(scene.skipped);
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
  CLI::App* command =
      app.add_subcommand("render", "Render a scene file (.mvr) to a mesh file (.obj or .glb)");
  auto input = std::make_shared<std::string>();
  auto output = std::make_shared<std::string>();
  auto unit = std::make_shared<double>(1.0);
  auto printTree = std::make_shared<bool>(false);
  command->add_option("file", *input, "the scene file")->required();
  command->add_option("-o,--output", *output, "the mesh file to write, .obj or .glb")->required();
  command->add_option("--unit", *unit,
                      "import scale: the size of one unit of the file (default 1)");
  command->add_flag("--tree", *printTree, "print the loaded scene graph first");
  command->callback([=, &result] { result.exitCode = render(*input, *output, *unit, *printTree); });
}
