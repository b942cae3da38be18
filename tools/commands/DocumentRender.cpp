#include "commands/DocumentRender.h"

#include "commands/MeshFile.h"
#include "commands/PluginSession.h"
#include "core/MessageSink.h"
#include "host/BaseDocument.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"

int renderDocument(const std::string& input, const std::string& output) {
  if (!PluginSession::ready()) return 1;  // so that the plug-in's objects evaluate
  BaseDocument* doc = DocumentFile::Load(input);
  if (!doc) return 1;
  DocumentMesh collected;
  bool ok = collected.collect(doc);
  BaseDocument::Free(doc);
  if (!ok) return 1;
  if (!writeMeshFile(collected.mesh(), collected.materials(), output)) return 1;
  mv::messageSink.info("render: " + std::to_string(collected.mesh().polygons.size()) +
                       " polygons, " + std::to_string(collected.mesh().points.size()) +
                       " points written to " + output);
  return 0;
}
