#include "commands/DocumentRender.h"

#include "commands/MeshFile.h"
#include "commands/PluginSession.h"

#include "console/HostConsoleBridge.h"
#include "core/MessageSink.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DescriptionResource.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"
#include "host/PluginRegistry.h"

namespace {

constexpr Int32 kSeparateObjects = 1115;

// Every generator that has the switch keeps its instances as objects of their own.
void separateInstances(BaseObject* first) {
  for (BaseObject* object = first; object != nullptr; object = object->GetNext()) {
    const DescriptionResource* description = PluginRegistry::FindDescription(object->GetType());
    if (description != nullptr && description->FindById(kSeparateObjects) != nullptr) {
      object->GetDataInstance()->SetBool(kSeparateObjects, true);
    }
    separateInstances(object->GetDown());
  }
}

}  // namespace

int renderDocument(const std::string& input, const std::string& output, bool separate) {
  if (!PluginSession::ready()) return 1;  // so that the plug-in's objects evaluate
  HostConsoleBridge console;
  BaseDocument* doc = DocumentFile::Load(input);
  if (!doc) return 1;
  if (separate) separateInstances(doc->GetFirstObject());
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
