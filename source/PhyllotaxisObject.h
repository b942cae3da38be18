// PhyllotaxisObject: the Phyllotaxis node as a host generator. Created from the menu it brings
// a half-circle arc as the profile of its surface of revolution.
#pragma once

#include "growth/Phyllotaxis.h"
#include "source/MorvoObjectData.h"

class PhyllotaxisObject : public MorvoObjectData, public mv::Phyllotaxis {
 public:
  Bool Message(GeListNode* node, Int32 type, void* data) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  static NodeData* Alloc() { return new PhyllotaxisObject; }
};
