#include "commands/DocumentRender.h"

#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "host/BaseDocument.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"

int renderDocument(const std::string& input, const std::string& output) {
  HostConsoleBridge console;
  BaseDocument* doc = DocumentFile::Load(input);
  if (!doc) return 1;
  DocumentMesh collected;
  bool ok = collected.collect(doc);
  BaseDocument::Free(doc);
  if (!ok) return 1;
  bool obj = output.size() >= 4 && output.compare(output.size() - 4, 4, ".obj") == 0;
  bool written = obj ? mv::ObjWriter(collected.materials()).write(collected.mesh(), output)
                     : mv::GlbWriter(collected.materials()).write(collected.mesh(), output);
  if (!written) return 1;
  mv::messageSink.info("render: " + std::to_string(collected.mesh().polygons.size()) +
                       " polygons, " + std::to_string(collected.mesh().points.size()) +
                       " points written to " + output);
  return 0;
}
