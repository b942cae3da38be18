// MorvoTagData: the data tag. It carries a placement's numbers (growth, index, count, thickness,
// density) to the instance it stands on, where the instance's parameter set and everything below
// it find them. Hidden from the menus: only the driver makes one.
#pragma once

#include "host/TagData.h"

class MorvoTagData : public TagData {
 public:
  Bool Init(GeListNode* node) override;
  static NodeData* Alloc() { return new MorvoTagData; }
};
