// PluginSession: the plug-in loaded into the stand-in host the way the host application loads it
// (first contact, the system message that reads its resources, start), at the first command that
// needs it, and ended when the program ends. A failure is reported.
#pragma once

class PluginSession {
 public:
  PluginSession();
  ~PluginSession();
  PluginSession(const PluginSession&) = delete;
  PluginSession& operator=(const PluginSession&) = delete;

  // Loads the plug-in at the first call; whether it runs. Commands over documents ask first.
  static bool ready();

 private:
  bool started_ = false;
};
