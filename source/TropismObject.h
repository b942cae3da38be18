// TropismObject: the Tropism node as a host modifier: it bends the path it stands under toward
// an axis or a target. It marks itself dirty when its target moves and, when it stands among
// modifiers only, when the matrix above it changes (in mode 0 only its axes count).
#pragma once

#include "growth/Tropism.h"
#include "host/Matrix.h"
#include "source/MorvoObjectData.h"

class TropismObject : public MorvoObjectData, public mv::Tropism {
 public:
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  void CheckDirty(BaseObject* op, BaseDocument* doc) override;
  static NodeData* Alloc() { return new TropismObject; }

  Int32 targetDirty = -1;
  Matrix lastMatrix;
};
