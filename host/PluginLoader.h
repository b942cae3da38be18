// PluginLoader: how the host brings a plug-in to life and ends it. Loading calls the plug-in's
// entry with first contact (the host's function table and the plug-in's folder), then the
// system message that lets it read its resources, then start; unloading calls end.
#pragma once

#include "host/HostTypes.h"

// The host's function table as a plug-in sees it at first contact: the host's version.
struct HostFunctionTable {
  static constexpr Int32 kHostVersion = 15000;
  Int32 version = kHostVersion;
};

// The single export of a plug-in.
using PluginMain = Int32 (*)(Int32 action, void* p1, void* p2, void* p3);

// Plug-in actions and messages of the entry.
constexpr Int32 PLUGIN_ACTION_CONTACT = 1;
constexpr Int32 PLUGIN_ACTION_START = 2;
constexpr Int32 PLUGIN_ACTION_END = 3;
constexpr Int32 PLUGIN_ACTION_VERSION = 4;
constexpr Int32 PLUGIN_ACTION_MESSAGE = 6;
constexpr Int32 C4DMSG_PRIORITY = 0;
constexpr Int32 C4DPL_INIT_SYS = 1;
constexpr Int32 C4DPL_ENDACTIVITY = 1001;

class PluginLoader {
 public:
  // Contact, resources, start; false with a console line naming the step that failed. The
  // folder (with a trailing separator) holds the plug-in's res folder.
  static Bool Load(PluginMain main, const String& folder);
  // End, once for each successful contact.
  static void Unload(PluginMain main);
};
