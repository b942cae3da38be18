// DeviationObject: the Deviation node as a host modifier: it kinks the path it stands under at
// the nodes of the Branch that owns that path, so it follows that Branch's changes.
#pragma once

#include "growth/Deviation.h"
#include "source/MorvoObjectData.h"

class DeviationObject : public MorvoObjectData, public mv::Deviation {
 public:
  void CheckDirty(BaseObject* op, BaseDocument* doc) override;
  static NodeData* Alloc() { return new DeviationObject; }
};
