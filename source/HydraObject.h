// HydraObject: the Hydra node as a host generator. Created from the menu it wraps the active
// object (or, with none, a sphere). One handle sets the radius by dragging along y.
#pragma once

#include "growth/Hydra.h"
#include "source/MorvoObjectData.h"

class HydraObject : public MorvoObjectData, public mv::Hydra {
 public:
  Bool Message(GeListNode* node, Int32 type, void* data) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  Int32 GetHandleCount(BaseObject* op) override;
  void GetHandle(BaseObject* op, Int32 index, HandleInfo& info) override;
  void SetHandle(BaseObject* op, Int32 index, Vector position, const HandleInfo& info) override;
  static NodeData* Alloc() { return new HydraObject; }
};
