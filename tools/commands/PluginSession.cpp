#include "commands/PluginSession.h"

#include "core/MessageSink.h"
#include "host/PluginLoader.h"
#include "source/Main.h"

PluginSession::PluginSession() { started_ = PluginLoader::Load(&c4d_main, MORVO_PLUGIN_DIR); }

PluginSession::~PluginSession() {
  if (started_) PluginLoader::Unload(&c4d_main);
}

bool PluginSession::ready() {
  static const PluginSession session;
  const bool running = session.started_;
  if (!running)
    mv::messageSink.error("the Morvo plug-in is not loaded: no res folder at " MORVO_PLUGIN_DIR);
  return running;
}
