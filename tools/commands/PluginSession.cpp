#include "commands/PluginSession.h"

#include <iostream>

#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "host/PluginLoader.h"
#include "source/Main.h"

PluginSession::PluginSession()
    : console_(std::cerr),
      previousConsole_(HostConsole::Install(&console_)),
      previousMessages_(mv::messageSink.handler),
      previousProgress_(mv::progressSink.handler),
      loaded_(PluginLoader::Load(&c4d_main, MORVO_RESOURCE_DIR "/")) {}

PluginSession::~PluginSession() {
  if (loaded_) PluginLoader::Unload(&c4d_main);
  mv::messageSink.handler = previousMessages_;
  mv::progressSink.handler = previousProgress_;
  HostConsole::Install(previousConsole_);
}
