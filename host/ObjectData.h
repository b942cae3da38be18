// ObjectData: the base of an object plug-in. A generator answers GetVirtualObjects, a spline
// plug-in GetContour, a modifier ModifyObject; CheckDirty lets a class mark itself dirty before
// each document pass. The defaults do nothing and produce nothing.
#pragma once

#include "host/HandleInfo.h"
#include "host/Matrix.h"
#include "host/NodeData.h"

class BaseDocument;
class BaseObject;
class BaseThread;
class HierarchyHelp;
class SplineObject;

class ObjectData : public NodeData {
 public:
  // The root of the object's virtual hierarchy, owned by the host from then on; or the cache
  // the host already holds (GetCache), or null.
  virtual BaseObject* GetVirtualObjects(BaseObject* /*op*/, HierarchyHelp* /*hh*/) {
    return nullptr;
  }
  // Deforms `op`, an object below the modifier `mod`; op_mg and mod_mg are their global
  // matrices.
  virtual Bool ModifyObject(BaseObject* /*mod*/, BaseDocument* /*doc*/, BaseObject* /*op*/,
                            const Matrix& /*op_mg*/, const Matrix& /*mod_mg*/, Float /*lod*/,
                            Int32 /*flags*/, BaseThread* /*thread*/) {
    return true;
  }
  // The spline of a spline plug-in, owned by the host from then on.
  virtual SplineObject* GetContour(BaseObject* /*op*/, BaseDocument* /*doc*/, Float /*lod*/,
                                   BaseThread* /*thread*/) {
    return nullptr;
  }
  virtual void CheckDirty(BaseObject* /*op*/, BaseDocument* /*doc*/) {}
  virtual Int32 GetHandleCount(BaseObject* /*op*/) { return 0; }
  virtual void GetHandle(BaseObject* /*op*/, Int32 /*index*/, HandleInfo& /*info*/) {}
  virtual void SetHandle(BaseObject* /*op*/, Int32 /*index*/, Vector /*position*/,
                         const HandleInfo& /*info*/) {}
};
