// ModelingCommandData: the arguments and the answer of SendModelingCommand. The answer's
// objects are the caller's; the list that holds them goes with this record.
#pragma once

#include <memory>

#include "host/AtomArray.h"

class BaseContainer;
class BaseDocument;
class BaseObject;

struct ModelingCommandData {
  BaseDocument* doc = nullptr;
  BaseObject* op = nullptr;
  BaseContainer* bc = nullptr;
  Int32 mode = 0;
  Int32 flags = 0;
  AtomArray* result = nullptr;  // filled by the command

  ModelingCommandData() = default;
  ModelingCommandData(const ModelingCommandData&) = delete;
  ModelingCommandData& operator=(const ModelingCommandData&) = delete;
  ~ModelingCommandData() { delete result; }
};
