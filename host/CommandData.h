// CommandData: the base of a menu command: the host runs Execute when the user picks it.
#pragma once

#include "host/HostTypes.h"

class BaseDocument;

class CommandData {
 public:
  virtual ~CommandData() = default;
  virtual Bool Execute(BaseDocument* /*doc*/) { return false; }
  virtual Int32 GetState(BaseDocument* /*doc*/) { return 0; }
  virtual Bool RestoreLayout(void* /*secret*/) { return false; }
};
