// PluginSession: the Morvo plug-in loaded into the host for the length of one command, with the
// command's message and progress handlers restored afterwards.
#pragma once

#include "core/MessageSink.h"
#include "core/ProgressSink.h"
#include "host/PluginLoader.h"
#include "source/Main.h"

class PluginSession {
 public:
  PluginSession()
      : messages_(mv::messageSink.handler),
        progress_(mv::progressSink.handler),
        loaded_(PluginLoader::Load(&c4d_main, MORVO_RESOURCE_DIR "/")) {}
  ~PluginSession() {
    if (loaded_) PluginLoader::Unload(&c4d_main);
    mv::messageSink.handler = messages_;
    mv::progressSink.handler = progress_;
  }
  PluginSession(const PluginSession&) = delete;
  PluginSession& operator=(const PluginSession&) = delete;
  bool loaded() const { return loaded_; }

 private:
  mv::MessageHandler* messages_;
  mv::ProgressHandler* progress_;
  bool loaded_;
};
