// InstanceProgress: the status line while a generator places its instances. Generators nest (a
// placed clone is evaluated inside its parent's pass), so only the outermost one counts; a short
// evaluation never touches the status line.
#pragma once

#include "host/HostTypes.h"

class InstanceProgress {
 public:
  // Milliseconds before the status line shows anything.
  static constexpr Int32 kDelay = 500;

  void begin(const String& objectName, Int32 placementTotal);
  void step();
  void end();

  // The process-wide record, made by PluginStart and released by PluginEnd; null outside.
  static InstanceProgress* current;

  Int32 total = 0;
  Int32 done = 0;
  Int32 depth = 0;
  Int32 startTime = 0;
  String name;
  Bool shown = false;
};
