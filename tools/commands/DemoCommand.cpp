// morvo demo: builds a small plant from a growth node's own defaults and writes
// it as a mesh, so that the node can be looked at without a host.
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/DemoPlants.h"
#include "commands/MeshFile.h"
#include "commands/ModifierDemos.h"
#include "core/MessageSink.h"

namespace {

// Builds the demo of node into mesh and says what it shows.
std::string buildDemo(const std::string& node, mv::MeshData& mesh) {
  if (node == "hydra") return buildDemoHydra(mesh);
  if (node == "tropism") return buildDemoTropism(mesh);
  if (node == "curvature") return buildDemoCurvature(mesh);
  const DemoCounts counts = node == "branch" ? buildDemoBranch(mesh) : buildDemoPhyllotaxis(mesh);
  return node == "branch" ? std::to_string(counts.nodes) + " twigs at the nodes, " +
                                std::to_string(counts.ends) + " marker at the end"
                          : std::to_string(counts.elements) + " cones at the elements";
}

int writeDemo(const std::string& node, const std::string& output) {
  if (!checkMeshFileName("demo", output)) return 2;
  mv::MeshData mesh;
  const std::string shown = buildDemo(node, mesh);
  const std::vector<mv::ExportMaterial> materials = {{"bark", 0.45, 0.32, 0.2, ""},
                                                     {"leaf", 0.25, 0.6, 0.15, ""}};
  if (!writeMeshFile(mesh, materials, output)) return 1;
  mv::messageSink.info("demo " + node + ": " + std::to_string(mesh.getPolygonCount()) +
                       " polygons, " + shown + ", written to " + output);
  return 0;
}

}  // namespace

void addDemoCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command = app.add_subcommand("demo",
                                         "Build a small plant from a growth node's "
                                         "defaults and write it as a mesh");
  auto node = std::make_shared<std::string>();
  auto output = std::make_shared<std::string>();
  command->add_option("node", *node, "branch, phyllotaxis, hydra, tropism or curvature")
      ->required()
      ->check(CLI::IsMember({"branch", "phyllotaxis", "hydra", "tropism", "curvature"}));
  command->add_option("-o,--output", *output, "The file to write, .glb or .obj")->required();
  command->callback([node, output, &result] { result.exitCode = writeDemo(*node, *output); });
}
