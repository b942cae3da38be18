// Main: the plug-in's entry. The host calls c4d_main for every life event; PluginStart installs
// the message handlers and registers every class of the plug-in in a fixed order, so that ids,
// menus and documents find them.
#pragma once

#include "host/HostTypes.h"

// The host's view of the plug-in: action 1 first contact (p1 the host's function table, p3 the
// plug-in's path), 2 start, 3 end, 4 version, 6 message (p1 id, p2 data).
Int32 c4d_main(Int32 action, void* p1, void* p2, void* p3);

Bool PluginStart();
Bool PluginMessage(Int32 id, void* data);
void PluginEnd();

// The plug-in's folder as the host gave it at first contact; empty before and after.
const String& pluginPath();
// Whether a companion plug-in has announced itself.
Bool companionPresent();
