// morvo render: loads a scene file into the classic scene graph, evaluates it and writes the mesh
// as OBJ (with MTL) or binary glTF. What the load had to skip is said on standard error; the
// exit status is non-zero only when nothing could be loaded or the file could not be written.
// The output is never the input; a directory, device or symbolic link in its place is replaced
// only with --force.
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/DocumentRender.h"
#include "commands/MeshFile.h"
#include "commands/SceneRender.h"
#include "core/MessageSink.h"
#include "export/ExportMaterial.h"
#include "export/ObjWriter.h"
#include "export/PhaseTimes.h"
#include "export/WriteOptions.h"

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

struct RenderOptions {
  std::string input, output;
  double unit = 1.0;
  bool printTree = false, embedTextures = false, force = false, timings = false;
  bool separate = false;
};

bool writeMesh(const RenderedScene& scene, const RenderOptions& options, mv::PhaseTimes& times) {
  const std::vector<mv::ExportMaterial> materials = exportMaterials(scene.materials);
  mv::WriteOptions writeOptions;
  writeOptions.embedTextures = options.embedTextures;
  writeOptions.replaceAnyFile = options.force;
  writeOptions.phaseTimes = &times;
  return writeMeshFile(scene.mesh, materials, options.output, writeOptions);
}

// True when writing path would overwrite the file at input (the same file by any name).
bool sameFile(const std::string& input, const std::string& path) {
  std::error_code error;
  return std::filesystem::equivalent(input, path, error) && !error;
}

bool outputIsInput(const RenderOptions& options) {
  const bool obj = endsWith(options.output, ".obj");
  for (const std::string& path :
       {options.output, obj ? mv::ObjWriter::materialLibraryPath(options.output) : ""}) {
    if (path.empty() || !sameFile(options.input, path)) continue;
    mv::messageSink.error("render: \"" + path + "\" is the scene file itself; not overwritten");
    return true;
  }
  return false;
}

int render(const RenderOptions& options) {
  const std::string& input = options.input;
  const std::string& output = options.output;
  if (!checkMeshFileName("render", output)) return 2;
  if (!std::isfinite(options.unit) || options.unit <= 0.0) {
    mv::messageSink.error("render: the unit must be a finite positive number");
    return 2;
  }
  if (endsWith(input, ".morvo")) return renderDocument(input, output, options.separate);
  if (!std::ifstream(input)) {
    mv::messageSink.error("render: cannot open \"" + input + "\"");
    return 1;
  }
  if (outputIsInput(options)) return 2;
  RenderedScene scene;
  mv::PhaseTimes times;
  renderScene(input, options.unit, options.printTree, scene, &times);
  reportSkips(scene.skipped);
  if (scene.topObjects == 0) {
    mv::messageSink.error("render: nothing could be loaded from \"" + input + "\"");
    return 1;
  }
  if (!scene.loaded)
    mv::messageSink.warning("render: the load stopped early; writing what it made");
  if (!writeMesh(scene, options, times)) return 1;
  size_t triangles = 0;
  for (const mv::MeshPolygon& polygon : scene.mesh.polygons)
    triangles += polygon.isTriangle() ? 1 : 2;
  mv::messageSink.info("render: " + std::to_string(scene.mesh.getPolygonCount()) + " polygons (" +
                       std::to_string(triangles) + " triangles), " +
                       std::to_string(scene.mesh.getPointCount()) + " points written to " + output);
  if (options.timings) mv::messageSink.info("render: processor time: " + times.summary());
  return 0;
}

}  // namespace

void addRenderCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command =
      app.add_subcommand("render", "Render a scene file (.mvr) to a mesh file (.obj or .glb)");
  auto options = std::make_shared<RenderOptions>();
  command->add_option("file", options->input, "the scene file")->required();
  command->add_option("-o,--output", options->output, "the mesh file to write, .obj or .glb")
      ->required();
  command->add_option("--unit", options->unit,
                      "import scale: the size of one unit of the file (default 1)");
  command->add_flag("--tree", options->printTree, "print the loaded scene graph first");
  command->add_flag("--embed-textures", options->embedTextures,
                    "store the texture images inside the .glb instead of referencing them");
  command->add_flag("--force", options->force,
                    "replace the output even when it is a symbolic link, device or other "
                    "non-regular file");
  command->add_flag("--timings", options->timings, "say how much processor time each phase took");
  command->add_flag("--separate", options->separate,
                    "documents: every generator keeps its instances as separate objects");
  command->callback([options, &result] { result.exitCode = render(*options); });
}
