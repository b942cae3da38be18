#include "source/HydraObject.h"

#include <algorithm>

#include "core/MathConstants.h"
#include "host/ActiveDocument.h"
#include "host/BaseDocument.h"
#include "source/C4dParameterSet.h"

namespace {

// The active object moves under the Hydra; without one a sphere stands in.
bool wrapSelection(BaseObject* op) {
  BaseDocument* doc = GetActiveDocument();
  if (doc == nullptr) return true;
  BaseObject* child = doc->GetActiveObject();
  if (child != nullptr && child != op) {
    child->Remove();
  } else {
    child = BaseObject::Alloc(Osphere);
    if (child == nullptr) return false;
    child->SetName("Sphere");
    child->SetPhong(true, true, 80.0 * mt::kPi / 180.0);
  }
  child->InsertUnderLast(op);
  return true;
}

}  // namespace

Bool HydraObject::Message(GeListNode* node, Int32 type, void* data) {
  if (type == MSG_MENUPREPARE) return wrapSelection(static_cast<BaseObject*>(node));
  return MorvoObjectData::Message(node, type, data);
}

Bool HydraObject::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                               DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  if (id[0].id == nodeGrowth) {
    return static_cast<BaseObject*>(node)->GetDataInstance()->GetBool(nodeGrowthCurved);
  }
  return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
}

Int32 HydraObject::GetHandleCount(BaseObject*) { return 1; }

void HydraObject::GetHandle(BaseObject* op, Int32 index, HandleInfo& info) {
  C4dParameterSet params(op, op->GetDocument());
  info.position = index == 0 ? Vector(0.0, params.getDouble(radius), 0.0) : Vector();
  info.direction = Vector(0.0, 1.0, 0.0);
}

void HydraObject::SetHandle(BaseObject* op, Int32 index, Vector position, const HandleInfo&) {
  if (index != 0) return;
  op->GetDataInstance()->SetReal(radius, std::max(0.0, position.y));
  op->SetDirty(DIRTYFLAGS_DATA);
}
