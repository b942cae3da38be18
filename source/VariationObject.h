// VariationObject: the Variation node as a host generator: each placement above it takes one of
// its children. Its instances are separate objects by default.
#pragma once

#include "growth/Variation.h"
#include "source/MorvoObjectData.h"

class VariationObject : public MorvoObjectData, public mv::Variation {
 public:
  Bool Init(GeListNode* node) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  static NodeData* Alloc() { return new VariationObject; }
};
