#include "source/TropismObject.h"

#include "source/PluginIds.h"

namespace {

// The matrix dirty counts of object and all its ancestors, added up.
Int32 matrixDirtyOfChain(BaseObject* object) {
  Int32 sum = 0;
  for (; object != nullptr; object = object->GetUp()) {
    sum += static_cast<Int32>(object->GetDirty(DIRTYFLAGS_MATRIX));
  }
  return sum;
}

bool onlyModifierSiblings(BaseObject* op) {
  auto isModifier = [](BaseObject* object) { return (object->GetInfo() & OBJECT_MODIFIER) != 0; };
  for (BaseObject* sibling = op->GetPred(); sibling != nullptr; sibling = sibling->GetPred()) {
    if (!isModifier(sibling)) return false;
  }
  for (BaseObject* sibling = op->GetNext(); sibling != nullptr; sibling = sibling->GetNext()) {
    if (!isModifier(sibling)) return false;
  }
  return true;
}

}  // namespace

Bool TropismObject::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                                 DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  if (id[0].id == tropismAxis) {
    return static_cast<BaseObject*>(node)->GetDataInstance()->GetLong(tropismMode) != 1;
  }
  return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
}

void TropismObject::CheckDirty(BaseObject* op, BaseDocument* doc) {
  BaseObject* target = op->GetDataInstance()->GetObjectLink(tropismTarget, doc);
  const Int32 dirty = matrixDirtyOfChain(target);
  if (dirty != targetDirty) {
    op->SetDirty(DIRTYFLAGS_DATA);
    targetDirty = dirty;
  }
  if (!onlyModifierSiblings(op)) return;
  const Matrix above = op->GetUpMg();
  const bool wholeMatrix = op->GetDataInstance()->GetLong(tropismMode) != 0;
  const bool changed = wholeMatrix ? above != lastMatrix
                                   : above.v1 != lastMatrix.v1 || above.v2 != lastMatrix.v2 ||
                                         above.v3 != lastMatrix.v3;
  if (changed) op->SetDirty(DIRTYFLAGS_DATA);
  lastMatrix = above;
}
