#include "host/PluginRegistry.h"

#include <map>

#include "host/BaseList2D.h"
#include "host/CommandData.h"
#include "host/CustomDataTypeClass.h"
#include "host/CustomGuiData.h"
#include "host/DescriptionResource.h"
#include "host/GeResource.h"
#include "host/HostConsole.h"
#include "host/HostTypeTable.h"

namespace {

struct Registry {
  std::map<Int32, PluginEntry> entries;
  std::map<Int32, DescriptionResource> descriptions;
  bool hostTypesAdded = false;
};

Registry& registry() {
  static Registry state;
  if (!state.hostTypesAdded) {
    state.hostTypesAdded = true;  // before adding: adding calls back into the registry
    HostTypeTable::AddAll();
  }
  return state;
}

Bool addClass(Int32 id, PluginKind kind, const String& name, Int32 info, DataAllocator* allocator,
              const String& description, BaseBitmap* icon, Int32 diskLevel) {
  PluginEntry entry;
  entry.id = id;
  entry.kind = kind;
  entry.name = name;
  entry.info = info;
  entry.allocator = allocator;
  entry.description = description;
  entry.icon = icon;
  entry.diskLevel = diskLevel;
  if (!description.empty() && !PluginRegistry::FindDescription(id)) {
    RegisterDescription(id, description);  // a class without a description file still works
  }
  return PluginRegistry::Add(std::move(entry));
}

}  // namespace

Bool PluginRegistry::Add(PluginEntry entry) {
  if (entry.id == 0 || registry().entries.count(entry.id)) return false;
  Int32 id = entry.id;
  registry().entries.emplace(id, std::move(entry));
  return true;
}

const PluginEntry* PluginRegistry::Find(Int32 id) {
  auto it = registry().entries.find(id);
  return it == registry().entries.end() ? nullptr : &it->second;
}

const PluginEntry* PluginRegistry::FindByWord(PluginKind kind, const String& word) {
  for (const auto& [id, entry] : registry().entries) {
    if (entry.kind == kind && WordOf(id) == word) return &entry;
  }
  return nullptr;
}

std::vector<const PluginEntry*> PluginRegistry::List(PluginKind kind) {
  std::vector<const PluginEntry*> found;
  for (const auto& [id, entry] : registry().entries) {
    if (entry.kind == kind) found.push_back(&entry);
  }
  return found;
}

CustomDataTypeClass* PluginRegistry::FindCustomDataType(Int32 id) {
  const PluginEntry* entry = Find(id);
  return entry && entry->kind == PluginKind::CustomDataType ? entry->dataType.get() : nullptr;
}

const DescriptionResource* PluginRegistry::FindDescription(Int32 id) {
  auto it = registry().descriptions.find(id);
  return it == registry().descriptions.end() ? nullptr : &it->second;
}

String PluginRegistry::WordOf(Int32 id) {
  const PluginEntry* entry = Find(id);
  return entry && !entry->description.empty() ? entry->description : std::to_string(id);
}

Bool PluginRegistry::AttachNodeData(BaseList2D* node) {
  const PluginEntry* entry = Find(node->GetType());
  if (!entry) return false;
  if (!entry->allocator) return true;
  node->nodeData_ = entry->allocator();
  return node->nodeData_ && node->nodeData_->Init(node);
}

Bool RegisterDescription(Int32 id, const String& name) {
  String text;
  if (!GeResource::ReadFile(Filename("description") + Filename(name + ".res"), text)) {
    return false;
  }
  DescriptionResource description;
  String error;
  if (!DescriptionResource::Parse(text, description, error)) {
    GePrint("Description " + name + ": " + error);
    return false;
  }
  registry().descriptions[id] = std::move(description);
  return true;
}

Bool RegisterObjectPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                          const String& description, BaseBitmap* icon, Int32 diskLevel) {
  if (!allocator) return false;
  return addClass(id, PluginKind::Object, name, info, allocator, description, icon, diskLevel);
}

Bool RegisterTagPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                       const String& description, BaseBitmap* icon, Int32 diskLevel) {
  if (!allocator) return false;
  return addClass(id, PluginKind::Tag, name, info, allocator, description, icon, diskLevel);
}

Bool RegisterCommandPlugin(Int32 id, const String& name, Int32 info, BaseBitmap* icon,
                           const String& help, CommandData* command) {
  std::shared_ptr<CommandData> owned(command);
  if (!command) return false;
  PluginEntry entry;
  entry.id = id;
  entry.kind = PluginKind::Command;
  entry.name = name;
  entry.description = help;
  entry.info = info;
  entry.icon = icon;
  entry.command = owned;
  return PluginRegistry::Add(std::move(entry));
}

Bool RegisterSceneLoaderPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                               const String& description) {
  if (!allocator) return false;
  return addClass(id, PluginKind::SceneLoader, name, info, allocator, description, nullptr, 0);
}

Bool RegisterCustomDataTypePlugin(const String& name, Int32 info, CustomDataTypeClass* dataType,
                                  Int32 level) {
  std::shared_ptr<CustomDataTypeClass> owned(dataType);
  if (!dataType) return false;
  dataType->SetDiskLevel(level);
  PluginEntry entry;
  entry.id = dataType->GetId();
  entry.kind = PluginKind::CustomDataType;
  entry.name = name;
  entry.description = dataType->GetResourceSym();
  entry.info = info;
  entry.diskLevel = level;
  entry.dataType = owned;
  return PluginRegistry::Add(std::move(entry));
}

Bool RegisterCustomGuiPlugin(const String& name, Int32 info, CustomGuiData* gui) {
  std::shared_ptr<CustomGuiData> owned(gui);
  if (!gui) return false;
  PluginEntry entry;
  entry.id = gui->GetId();
  entry.kind = PluginKind::CustomGui;
  entry.name = name;
  entry.info = info;
  entry.gui = owned;
  return PluginRegistry::Add(std::move(entry));
}
