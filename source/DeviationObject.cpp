#include "source/DeviationObject.h"

void DeviationObject::CheckDirty(BaseObject* op, BaseDocument*) {
  BaseObject* parent = op->GetUp();
  BaseObject* owner = parent != nullptr ? parent->GetUp() : nullptr;
  if (owner != nullptr && owner->IsDirty(DIRTYFLAGS_DATA)) op->SetDirty(DIRTYFLAGS_DATA);
}
