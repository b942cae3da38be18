#include "host/PointObject.h"

#include "host/VariableTag.h"

Bool PointObject::ResizePoints(Int32 count) {
  if (count < 0 || count > VariableTag::kMaxCount) return false;
  points_.resize(count);
  return true;
}

BaseObject* PointObject::cloneObject() const {
  auto* clone = new PointObject(GetType());
  copyPointsTo(clone);
  return clone;
}
