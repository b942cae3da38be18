// BaseTag: a tag on an object: a type, a name, a container and, for a registered tag class,
// its plug-in data. The object it stands on owns it.
#pragma once

#include "host/BaseList2D.h"

class BaseObject;

class BaseTag : public BaseList2D {
 public:
  explicit BaseTag(Int32 type) : BaseList2D(type) {}
  // A tag of a host type or a registered tag class, Init already called; null for an unknown
  // type.
  static BaseTag* Alloc(Int32 type);
  static void Free(BaseTag*& tag);

  BaseObject* GetObject() const { return object_; }
  BaseTag* GetNext() const;
  BaseTag* GetPred() const;
  // A copy with this tag's name, container and data, standing on no object.
  BaseTag* GetClone(COPYFLAGS flags, AliasTrans* trans) const;
  // Whether the tag holds per-point or per-polygon data (UVW, line, segment data).
  virtual Bool IsVariable() const { return false; }

 protected:
  // A new tag of the same class with this one's own data.
  virtual BaseTag* cloneTag() const;

 private:
  friend class BaseObject;
  BaseObject* object_ = nullptr;
};
