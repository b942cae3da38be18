// PluginSession: the plug-in loaded into the stand-in host for the life of one command, with the
// host's console on standard error. The plug-in's resources are looked up in the folder the command
// was built from (MORVO_RESOURCE_DIR, which holds res/). The library's message handlers in place
// before are put back at the end.
#pragma once

#include "console/StreamConsole.h"
#include "core/MessageHandler.h"
#include "core/ProgressHandler.h"

class PluginSession {
 public:
  PluginSession();
  ~PluginSession();
  PluginSession(const PluginSession&) = delete;
  PluginSession& operator=(const PluginSession&) = delete;

  // False when the plug-in did not start; the host said why on the console.
  bool loaded() const { return loaded_; }

 private:
  StreamConsole console_;
  HostConsole* previousConsole_;
  mv::MessageHandler* previousMessages_;
  mv::ProgressHandler* previousProgress_;
  bool loaded_;
};
