// PluginRegistry: every class the host knows by id: its own object, tag and material types and
// the plug-ins registered through the Register* calls, with names, info flags, allocators,
// descriptions and icons. Registrations last for the life of the process.
#pragma once

#include <memory>
#include <vector>

#include "host/HostTypes.h"
#include "host/NodeData.h"

class BaseBitmap;
class BaseList2D;
class CommandData;
class CustomDataTypeClass;
class CustomGuiData;
class DescriptionResource;

enum class PluginKind { Object, Tag, Material, Command, SceneLoader, CustomDataType, CustomGui };

struct PluginEntry {
  Int32 id = 0;
  PluginKind kind = PluginKind::Object;
  String name;         // the name shown in menus
  String description;  // the description's name; also the class's word in document files
  Int32 info = 0;
  DataAllocator* allocator = nullptr;  // null for a host type without plug-in data
  BaseBitmap* icon = nullptr;
  Int32 diskLevel = 0;
  std::shared_ptr<CommandData> command;
  std::shared_ptr<CustomDataTypeClass> dataType;
  std::shared_ptr<CustomGuiData> gui;
};

class PluginRegistry {
 public:
  // False (and nothing registered) when the id is taken or zero.
  static Bool Add(PluginEntry entry);
  static const PluginEntry* Find(Int32 id);
  // The class of that kind whose description (or, without one, name) is the word.
  static const PluginEntry* FindByWord(PluginKind kind, const String& word);
  static std::vector<const PluginEntry*> List(PluginKind kind);
  static CustomDataTypeClass* FindCustomDataType(Int32 id);
  // The parameter names of a class, from its registered description; null when it has none.
  static const DescriptionResource* FindDescription(Int32 id);
  // The word that names a class in files: its description, or its id in decimal.
  static String WordOf(Int32 id);
  // Gives a new node of a registered class its plug-in data and runs the class's Init; true for
  // a host type without plug-in data, false when Init fails.
  static Bool AttachNodeData(BaseList2D* node);
};

// The host's registration calls. Each reports failure as false and leaves nothing behind.
Bool RegisterObjectPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                          const String& description, BaseBitmap* icon, Int32 diskLevel);
Bool RegisterTagPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                       const String& description, BaseBitmap* icon, Int32 diskLevel);
// The registry takes ownership of the command.
Bool RegisterCommandPlugin(Int32 id, const String& name, Int32 info, BaseBitmap* icon,
                           const String& help, CommandData* command);
Bool RegisterSceneLoaderPlugin(Int32 id, const String& name, Int32 info, DataAllocator* allocator,
                               const String& description);
// The registry takes ownership of the class; `level` is the level its values are written at.
Bool RegisterCustomDataTypePlugin(const String& name, Int32 info, CustomDataTypeClass* dataType,
                                  Int32 level);
Bool RegisterCustomGuiPlugin(const String& name, Int32 info, CustomGuiData* gui);
// Loads the description file `name` from the resource folder for the class `id`.
Bool RegisterDescription(Int32 id, const String& name);
