// HostTypeTable: the host's own object, tag and material types, entered into the registry
// with their file words and info flags the first time the registry is used.
#pragma once

class HostTypeTable {
 public:
  static void AddAll();
};
