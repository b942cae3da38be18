// Filename: a path of the host's file system, with the parts the host's calls ask for.
#pragma once

#include "host/HostTypes.h"

class Filename {
 public:
  Filename() = default;
  Filename(const String& path) : path_(path) {}
  Filename(const char* path) : path_(path) {}

  const String& GetString() const { return path_; }
  Bool Content() const { return !path_.empty(); }
  // The last component, with its suffix.
  Filename GetFile() const;
  // Everything before the last component.
  Filename GetDirectory() const;
  // The suffix after the last dot of the last component, without the dot.
  String GetSuffix() const;
  // True when the suffix equals `suffix`, ignoring case.
  Bool CheckSuffix(const String& suffix) const;
  void SetSuffix(const String& suffix);
  // The path with a component appended.
  Filename operator+(const Filename& component) const;

 private:
  String path_;
};
