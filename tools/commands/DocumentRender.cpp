#include "commands/DocumentRender.h"

#include <vector>

#include "commands/HairLines.h"

#include "commands/MeshFile.h"
#include "commands/PluginSession.h"

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
  BaseDocument* doc = DocumentFile::Load(input);
  if (!doc) return 1;
  if (separate) separateInstances(doc->GetFirstObject());
  DocumentMesh collected;
  bool ok = collected.collect(doc);
  // Hair (a lawn of the grass tag, say) goes out as lines in a material of its own.
  const mv::LineStrips hair = HairLines::ofDocument(doc);
  BaseDocument::Free(doc);
  if (!ok) return 1;
  std::vector<mv::ExportMaterial> materials = collected.materials();
  const int hairMaterial = int(materials.size());
  materials.push_back({"Hair", 0.25, 0.6, 0.12, ""});
  if (!writeMeshFile(collected.mesh(), materials, hair, hairMaterial, output)) return 1;
  const std::string hairs =
      hair.counts.empty() ? "" : ", " + std::to_string(hair.counts.size()) + " hairs";
  mv::messageSink.info("render: " + std::to_string(collected.mesh().polygons.size()) +
                       " polygons, " + std::to_string(collected.mesh().points.size()) + " points" +
                       hairs + " written to " + output);
  return 0;
}
