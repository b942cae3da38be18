// SceneLoaderData: the base of a scene loader plug-in: the host offers it the start of each
// file it is asked to open (Identify), and for a file it accepts calls Load with the document
// to fill. The loader's settings live in the container of its BaseSceneLoader node.
#pragma once

#include "host/Filename.h"
#include "host/NodeData.h"

class BaseDocument;
class BaseList2D;
class BaseThread;

using BaseSceneLoader = BaseList2D;

// What a scene load is asked to bring in.
constexpr Int32 SCENEFILTER_OBJECTS = 1;
constexpr Int32 SCENEFILTER_MATERIALS = 2;

// Results of Load.
constexpr Int32 FILEERROR_NONE = 0;
constexpr Int32 FILEERROR_OPEN = -1;
constexpr Int32 FILEERROR_WRONG_VALUE = -3;

class SceneLoaderData : public NodeData {
 public:
  virtual Bool Identify(BaseSceneLoader* /*node*/, const Filename& /*name*/, UChar* /*probe*/,
                        Int32 /*size*/) {
    return false;
  }
  virtual Int32 Load(BaseSceneLoader* /*node*/, const Filename& /*name*/, BaseDocument* /*doc*/,
                     Int32 /*filterflags*/, String* /*error*/, BaseThread* /*thread*/) {
    return FILEERROR_OPEN;
  }
};
