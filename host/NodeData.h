// NodeData: the base of every plug-in class's data: the host creates one per node through the
// class's allocator, calls Init once, and hands it the node on each call.
#pragma once

#include "host/DescID.h"
#include "host/GeData.h"
#include "host/HostTypes.h"

class AliasTrans;
class BaseContainer;
class Description;
class GeListNode;

class NodeData {
 public:
  virtual ~NodeData() = default;
  virtual Bool Init(GeListNode* /*node*/) { return true; }
  virtual void Free(GeListNode* /*node*/) {}
  virtual Bool Message(GeListNode* /*node*/, Int32 /*type*/, void* /*data*/) { return true; }
  virtual Bool GetDDescription(GeListNode* /*node*/, Description* /*description*/,
                               DESCFLAGS_DESC& /*flags*/) {
    return true;
  }
  virtual Bool GetDEnabling(GeListNode* /*node*/, const DescID& /*id*/, const GeData& /*value*/,
                            DESCFLAGS_ENABLE /*flags*/, const BaseContainer* /*itemdesc*/) {
    return true;
  }
  // Handles a parameter itself when it adds DESCFLAGS_SET_PARAM_SET to the flags; otherwise
  // the host writes the container.
  virtual Bool SetDParameter(GeListNode* /*node*/, const DescID& /*id*/, const GeData& /*value*/,
                             DESCFLAGS_SET& /*flags*/) {
    return true;
  }
  virtual Bool GetDParameter(GeListNode* /*node*/, const DescID& /*id*/, GeData& /*value*/,
                             DESCFLAGS_GET& /*flags*/) {
    return true;
  }
  // Copies the class's own members to the data of a clone.
  virtual Bool CopyTo(NodeData* /*target*/, GeListNode* /*source*/, GeListNode* /*clone*/,
                      COPYFLAGS /*flags*/, AliasTrans* /*trans*/) {
    return true;
  }
};

// The function that creates one instance of a plug-in class.
using DataAllocator = NodeData*();
