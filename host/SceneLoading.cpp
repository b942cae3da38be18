#include "host/SceneLoading.h"

#include <fstream>
#include <memory>
#include <vector>

#include "host/BaseDocument.h"
#include "host/DocumentFile.h"
#include "host/HostConsole.h"
#include "host/PluginRegistry.h"
#include "host/SceneLoaderData.h"

namespace {

constexpr Int32 kProbeSize = 1024;

// The settings node of a scene loader, with its class data initialised.
std::unique_ptr<BaseList2D> loaderNode(Int32 id) {
  auto node = std::make_unique<BaseList2D>(id);
  if (!PluginRegistry::AttachNodeData(node.get())) return nullptr;
  return node;
}

}  // namespace

BaseDocument* LoadDocument(const Filename& name, Int32 filterflags, BaseThread* thread) {
  if (name.CheckSuffix("morvo")) return DocumentFile::Load(name);
  std::ifstream in(name.GetString(), std::ios::binary);
  if (!in) {
    GePrint("Cannot open " + name.GetString());
    return nullptr;
  }
  std::vector<UChar> probe(kProbeSize);
  in.read(reinterpret_cast<char*>(probe.data()), kProbeSize);
  auto size = static_cast<Int32>(in.gcount());
  for (const PluginEntry* entry : PluginRegistry::List(PluginKind::SceneLoader)) {
    std::unique_ptr<BaseList2D> node = loaderNode(entry->id);
    auto* loader = node ? dynamic_cast<SceneLoaderData*>(node->GetNodeData()) : nullptr;
    if (!loader || !loader->Identify(node.get(), name, probe.data(), size)) continue;
    BaseDocument* doc = BaseDocument::Alloc();
    String error;
    Int32 result = loader->Load(node.get(), name, doc, filterflags, &error, thread);
    if (result == FILEERROR_NONE) return doc;
    BaseDocument::Free(doc);
    GePrint("Cannot load " + name.GetString() + (error.empty() ? String() : ": " + error));
    return nullptr;
  }
  GePrint("No loader takes " + name.GetString());
  return nullptr;
}
