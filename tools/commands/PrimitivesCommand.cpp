// morvo primitives: a developer's look at the polygon output. Writes a tube patch, a star-shaped
// outline and a small quad mesh through the polygon stream and exports them, so that a person can
// open the result in any viewer. Hidden from the help.
#include <cmath>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/MeshFile.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "export/ExportMaterial.h"
#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"

namespace {

using mv::GeomPrimitiveWriter;
using mv::Vector3;

// A closed tube around +z that flares at the top, facing outward: rows go up, columns run
// clockwise seen from +z, the last column repeats the first.
void writeTube(mv::OGeomStream& s) {
  const int nu = 25, nv = 9;
  std::vector<Vector3> points;
  for (int j = 0; j < nv; ++j) {
    const double radius = 0.4 + 0.1 * j * j / (nv - 1.0);
    for (int i = 0; i < nu; ++i) {
      const double angle = -mt::kTwoPi * (i % (nu - 1)) / (nu - 1);
      points.emplace_back(radius * std::cos(angle), radius * std::sin(angle), 0.5 * j);
    }
  }
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 0;
  GeomPrimitiveWriter::writePatch(s, nu, nv, points);
  s << mv::CmdGroupEnd;
}

// A seven-pointed star, upright in the x-z plane beside the tube: concave, so the ear clipping
// has reflex corners to walk around.
void writeStar(mv::OGeomStream& s) {
  std::vector<Vector3> points;
  std::vector<double> texture;
  const int corners = 14;
  for (int k = 0; k < corners; ++k) {
    const double angle = mt::kTwoPi * k / corners, r = k % 2 == 0 ? 1.0 : 0.45;
    points.emplace_back(r * std::cos(angle), 0.0, r * std::sin(angle));
    texture.insert(texture.end(), {0.5 + 0.5 * points.back().x, 0.5 - 0.5 * points.back().z});
  }
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 1 << mv::CmdAttribute;
  s.param(mv::ParamSelection) << std::string("star");
  s << mv::CmdTransform << mv::Matrix4::translation({2.5, 0.0, 2.0});
  GeomPrimitiveWriter::writeOutline(s, points, texture);
  s << mv::CmdGroupEnd;
}

// Steps of quads with one triangle on top, on the other side of the tube.
void writeSteps(mv::OGeomStream& s) {
  const std::vector<Vector3> points = {{-3, 0, 0},   {-2, 0, 0},   {-3, 0, 0.5},  {-2, 0, 0.5},
                                       {-3, 1, 0.5}, {-2, 1, 0.5}, {-2.5, 1, 1.2}};
  const std::vector<int> indices = {0, 1, 3, 2, 2, 3, 5, 4, 4, 5, 6, 6};
  const std::vector<double> texture = {0, 1, 1, 1, 1, 0.5, 0, 0.5, 0,   0.5, 1,   0.5,
                                       1, 0, 0, 0, 0, 0,   1, 0,   0.5, 1,   0.5, 1};
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 2;
  GeomPrimitiveWriter::writeQuadMesh(s, indices, points, texture);
  s << mv::CmdGroupEnd;
}

int writePrimitives(const std::string& output) {
  if (!checkMeshFileName("primitives", output)) return 2;
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    writeTube(stream);
    writeStar(stream);
    writeSteps(stream);
  }
  mesh.finish();
  const std::vector<mv::ExportMaterial> materials = {
      {"bark", 0.45, 0.32, 0.2, ""}, {"leaf", 0.2, 0.6, 0.15, ""}, {"stone", 0.6, 0.6, 0.6, ""}};
  return writeMeshFile(mesh, materials, output) ? 0 : 1;
}

}  // namespace

void addPrimitivesCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command =
      app.add_subcommand("primitives", "write a patch, an outline and a quad mesh to a file");
  command->group("");  // a developer's tool, not in the help
  auto output = std::make_shared<std::string>();
  command->add_option("-o,--output", *output, "the file to write, .obj or .glb")->required();
  command->callback([output, &result] { result.exitCode = writePrimitives(*output); });
}
