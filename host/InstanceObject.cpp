#include "host/InstanceObject.h"

#include "host/BaseObject.h"
#include "host/HostConsole.h"

static bool standsAbove(const BaseObject* target, const BaseObject* op) {
  for (const BaseObject* at = op; at; at = at->GetUp() ? at->GetUp() : at->GetCacheParent()) {
    if (at == target) return true;
  }
  return false;
}

BaseObject* InstanceObject::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  BaseObject* target = op->GetDataInstance()->GetObjectLink(INSTANCEOBJECT_LINK);
  if (!target) return nullptr;
  if (standsAbove(target, op)) {
    GePrint("Instance \"" + op->GetName() + "\" links \"" + target->GetName() +
            "\", which contains it: nothing is made");
    return nullptr;
  }
  UInt64 stamp = target->GetHierarchyStamp();
  if (!op->CheckCache(hh) && !op->IsDirty(DIRTYFLAGS_DATA) && stamp == linkStamp_) {
    return op->GetCache(hh);
  }
  linkStamp_ = stamp;
  BaseObject* copy = target->GetClone(COPYFLAGS_NONE, nullptr);
  if (copy) copy->SetMl(Matrix());
  return copy;
}
