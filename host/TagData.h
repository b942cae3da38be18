// TagData: the base of a tag plug-in. An expression tag (info flag TAG_EXPRESSION) is executed
// once per document pass, before the objects are evaluated.
#pragma once

#include "host/NodeData.h"

class BaseDocument;
class BaseObject;
class BaseTag;
class BaseThread;

class TagData : public NodeData {
 public:
  virtual EXECUTIONRESULT Execute(BaseTag* /*tag*/, BaseDocument* /*doc*/, BaseObject* /*op*/,
                                  BaseThread* /*thread*/, Int32 /*priority*/, Int32 /*flags*/) {
    return 0;
  }
};
