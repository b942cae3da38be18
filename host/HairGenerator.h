// HairGenerator: the class data of the hair object (see HairObject): on each rebuild it asks
// its tags for a hair plug-in's hook, runs generate in passes 0 and 1, and makes the guides its
// cache as a line object. It rebuilds when it, its tags or its surface changed.
#pragma once

#include "host/ObjectData.h"

class HairGenerator : public ObjectData {
 public:
  static NodeData* Alloc() { return new HairGenerator(); }
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;

 private:
  UInt64 surfaceStamp_ = 0;
};
