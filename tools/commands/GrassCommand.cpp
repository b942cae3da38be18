// morvo grass: grows a lawn on a surface read from a mesh file or a document's current state. The
// surface goes into a document of the stand-in host with a hair object that carries the plug-in's
// grass tag; the hair object builds its guides through the tag, and the surface and the blades (as
// lines) are written to binary glTF or OBJ.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/HairLines.h"
#include "commands/MeshFile.h"
#include "commands/PluginSession.h"
#include "commands/SurfaceFile.h"
#include "core/MessageSink.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"
#include "host/HairObject.h"
#include "host/PolygonObject.h"
#include "source/MGrassTag/MGrassTagData.h"
#include "source/MatrixConversion.h"
#include "source/PluginIds.h"

namespace {

struct GrassOptions {
  std::string surface, output;
  int count = 2000, segments = 6, clump = 20;
  double length = 10.0, variation = 5.0, noise = 0.1;
};

// The mesh as a host polygon object: points in host axes, corners in the same order.
PolygonObject* toPolygonObject(const mv::MeshData& mesh) {
  PolygonObject* op = PolygonObject::Alloc(Int32(mesh.points.size()), Int32(mesh.polygons.size()));
  if (!op) return nullptr;
  for (size_t k = 0; k < mesh.points.size(); ++k) op->GetPointW()[k] = toHostVector(mesh.points[k]);
  for (size_t k = 0; k < mesh.polygons.size(); ++k) {
    const mv::MeshPolygon& p = mesh.polygons[k];
    op->GetPolygonW()[k] = CPolygon(Int32(p.a), Int32(p.b), Int32(p.c), Int32(p.d));
  }
  op->SetName("Surface");
  return op;
}

// A document's current state as one mesh, or a mesh file.
bool readSurface(const std::string& path, mv::MeshData& mesh) {
  if (!endsWith(path, ".morvo")) return SurfaceFile::read(path, mesh);
  BaseDocument* doc = DocumentFile::Load(path);
  if (!doc) return false;
  DocumentMesh collected;
  const bool collectedSome = collected.collect(doc);
  BaseDocument::Free(doc);
  if (collectedSome) mesh = collected.mesh();
  return collectedSome;
}

void setParameters(BaseTag* tag, PolygonObject* surface, const GrassOptions& o) {
  BaseContainer* data = tag->GetDataInstance();
  data->SetLink(MGrassTagData::MGRASS_SURFACE, surface);
  data->SetLong(MGrassTagData::MGRASS_HAIRCOUNT, o.count);
  data->SetLong(MGrassTagData::MGRASS_SEGMENTS, o.segments);
  data->SetReal(MGrassTagData::MGRASS_LENGTH, o.length);
  data->SetReal(MGrassTagData::MGRASS_LENGTHVARIATION, o.variation);
  data->SetReal(MGrassTagData::MGRASS_NOISEAMOUNT, o.noise);
  data->SetLong(MGrassTagData::MGRASS_CLUMPSIZE, o.clump);
}

// The surface in material 0, "Ground", the blades in material 1, "Grass".
bool write(mv::MeshData& mesh, const mv::LineStrips& lines, const std::string& output) {
  for (mv::MeshPolygon& polygon : mesh.polygons) polygon.material = 0;
  std::vector<mv::ExportMaterial> materials(2);
  materials[0] = {"Ground", 0.35, 0.25, 0.15, ""};
  materials[1] = {"Grass", 0.25, 0.6, 0.12, ""};
  return writeMeshFile(mesh, materials, lines, 1, output);
}

int grow(const GrassOptions& options) {
  if (!checkMeshFileName("grass", options.output)) return 2;
  if (!PluginSession::ready()) return 1;
  mv::MeshData mesh;
  if (!readSurface(options.surface, mesh)) return 1;
  BaseDocument doc;
  PolygonObject* surface = toPolygonObject(mesh);
  auto* hair = static_cast<HairObject*>(BaseObject::Alloc(Ohair));
  if (!surface || !hair) {
    mv::messageSink.error("grass: the surface is too large for the host");
    return 1;
  }
  doc.InsertObject(surface, nullptr, nullptr);
  doc.InsertObject(hair, nullptr, nullptr);
  hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, surface);
  BaseTag* tag = hair->MakeTag(ID_GRASS_TAG);
  if (!tag) return 1;
  setParameters(tag, surface, options);
  // The hair system's two passes, as the hair object runs them at each build.
  MGrassTagData::generate(&doc, tag, hair, nullptr, nullptr, 0);
  const HairGuides* guides = MGrassTagData::generate(&doc, tag, hair, nullptr, nullptr, 1);
  if (!guides) {
    mv::messageSink.error("grass: no blades grew on " + options.surface);
    return 1;
  }
  mv::LineStrips lines;
  HairLines::append(*guides, hair->GetMg(), lines);
  if (!write(mesh, lines, options.output)) return 1;
  mv::messageSink.info(std::to_string(lines.counts.size()) + " blades on " +
                       std::to_string(mesh.polygons.size()) + " polygons written to " +
                       options.output);
  return 0;
}

}  // namespace

void addGrassCommand(CLI::App& app, CommandResult& result) {
  auto options = std::make_shared<GrassOptions>();
  CLI::App* grass = app.add_subcommand("grass", "Grow a lawn of grass blades on a surface");
  grass->add_option("surface", options->surface, "Surface to grow on (.morvo, .obj, .glb, .gltf)")
      ->required();
  grass->add_option("-o,--output", options->output, "Output file (.glb or .obj)")->required();
  grass->add_option("--count", options->count, "Blades asked for; rounded up to whole clumps")
      ->capture_default_str();
  grass->add_option("--segments", options->segments, "Segments per blade")->capture_default_str();
  grass->add_option("--length", options->length, "Mean blade length")->capture_default_str();
  grass
      ->add_option("--variation", options->variation, "Half width of the random part of the length")
      ->capture_default_str();
  grass->add_option("--noise", options->noise, "Strength of the noise that turns the blades")
      ->capture_default_str();
  grass->add_option("--clump", options->clump, "Blades that share one root")->capture_default_str();
  grass->callback([options, &result] { result.exitCode = grow(*options); });
}
