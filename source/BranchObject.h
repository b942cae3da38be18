// BranchObject: the Branch node as a host generator. Created from the menu it brings a starter
// plant: a circle as its profile and a straight three-point path. Its arrangement preset
// (1349) writes the flap, screw and mode it stands for; editing one of those by hand drops the
// preset to 0.
#pragma once

#include "growth/Branch.h"
#include "source/MorvoObjectData.h"

class BranchObject : public MorvoObjectData, public mv::Branch {
 public:
  Bool Init(GeListNode* node) override;
  Bool Message(GeListNode* node, Int32 type, void* data) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  Bool SetDParameter(GeListNode* node, const DescID& id, const GeData& value,
                     DESCFLAGS_SET& flags) override;
  static NodeData* Alloc() { return new BranchObject; }
};
