#include "commands/DocumentRender.h"

#include <vector>

#include "commands/HairLines.h"
#include "commands/PluginSession.h"

#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "host/BaseDocument.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"

int renderDocument(const std::string& input, const std::string& output) {
  HostConsoleBridge console;
  // The plug-in's classes (generators, tags) must be known before its objects can load.
  PluginSession plugin;
  BaseDocument* doc = DocumentFile::Load(input);
  if (!doc) return 1;
  DocumentMesh collected;
  bool ok = collected.collect(doc);
  // Hair (a lawn of the grass tag, say) goes out as lines in a material of its own.
  const mv::LineStrips hair = HairLines::ofDocument(doc);
  BaseDocument::Free(doc);
  if (!ok) return 1;
  std::vector<mv::ExportMaterial> materials = collected.materials();
  const int hairMaterial = int(materials.size());
  materials.push_back({"Hair", 0.25, 0.6, 0.12, ""});
  bool obj = output.size() >= 4 && output.compare(output.size() - 4, 4, ".obj") == 0;
  bool written = obj ? mv::ObjWriter(materials).write(collected.mesh(), hair, hairMaterial, output)
                     : mv::GlbWriter(materials).write(collected.mesh(), hair, hairMaterial, output);
  if (!written) return 1;
  mv::messageSink.info(
      "render: " + std::to_string(collected.mesh().polygons.size()) + " polygons, " +
      std::to_string(collected.mesh().points.size()) + " points" +
      (hair.counts.empty() ? "" : ", " + std::to_string(hair.counts.size()) + " hairs") +
      " written to " + output);
  return 0;
}
