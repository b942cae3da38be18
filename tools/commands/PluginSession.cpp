#include "commands/PluginSession.h"

#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "host/PluginLoader.h"
#include "source/Main.h"

// The plug-in binds the library's handlers to the host's console at start; the command keeps its
// own, to which that console leads back.
PluginSession::PluginSession() {
  mv::MessageHandler* messages = mv::messageSink.handler;
  mv::ProgressHandler* progress = mv::progressSink.handler;
  started_ = PluginLoader::Load(&c4d_main, MORVO_RESOURCE_DIR "/");
  mv::messageSink.handler = messages;
  mv::progressSink.handler = progress;
}

PluginSession::~PluginSession() {
  if (started_) PluginLoader::Unload(&c4d_main);
}

bool PluginSession::ready() {
  static const PluginSession session;
  const bool running = session.started_;
  if (!running)
    mv::messageSink.error("the Morvo plug-in is not loaded: no res folder in " MORVO_RESOURCE_DIR);
  return running;
}
