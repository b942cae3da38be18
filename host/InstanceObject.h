// InstanceObject: the class data of the host's instance object (5126): its cache is a copy of
// the object linked in 1001, with that object's children, placed by the instance's own matrix
// (the linked object's matrix is not used). A link to the instance itself or to an object
// above it would contain itself: it makes nothing and says so on the console.
#pragma once

#include "host/ObjectData.h"

constexpr Int32 INSTANCEOBJECT_LINK = 1001;

class InstanceObject : public ObjectData {
 public:
  static NodeData* Alloc() { return new InstanceObject(); }
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override;

 private:
  UInt64 linkStamp_ = 0;  // the linked object's hierarchy stamp at the last build
};
