#include "host/PluginLoader.h"

#include <cstdint>

#include "host/HostConsole.h"

Bool PluginLoader::Load(PluginMain main, const String& folder) {
  HostFunctionTable table;
  String path = folder;
  if (main(PLUGIN_ACTION_CONTACT, &table, nullptr, &path) != 1) {
    GePrint("The plug-in refused the host at " + folder);
    return false;
  }
  void* message = reinterpret_cast<void*>(static_cast<intptr_t>(C4DPL_INIT_SYS));
  if (main(PLUGIN_ACTION_MESSAGE, message, nullptr, nullptr) != 1) {
    GePrint("The plug-in found no resources in " + folder);
    main(PLUGIN_ACTION_END, nullptr, nullptr, nullptr);
    return false;
  }
  if (main(PLUGIN_ACTION_START, nullptr, nullptr, nullptr) != 1) {
    GePrint("The plug-in did not start");
    main(PLUGIN_ACTION_END, nullptr, nullptr, nullptr);
    return false;
  }
  return true;
}

void PluginLoader::Unload(PluginMain main) { main(PLUGIN_ACTION_END, nullptr, nullptr, nullptr); }
