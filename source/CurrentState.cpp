#include "source/CurrentState.h"

#include "host/BaseObject.h"
#include "host/HostIds.h"
#include "host/ModelingCommand.h"

BaseObject* currentStateOf(BaseObject* object, BaseDocument* doc) {
  ModelingCommandData command;
  command.doc = doc;
  command.op = object;
  if (!SendModelingCommand(MCOMMAND_CURRENTSTATETOOBJECT, command) || command.result == nullptr) {
    return nullptr;
  }
  BaseObject* first = nullptr;
  for (Int32 i = 0; i < command.result->GetCount(); ++i) {
    auto* answer = static_cast<BaseObject*>(command.result->GetIndex(i));
    if (first == nullptr) {
      first = answer;
    } else {
      BaseObject::Free(answer);
    }
  }
  return first;
}
