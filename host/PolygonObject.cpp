#include "host/PolygonObject.h"

#include "host/BaseTag.h"
#include "host/SelectionTag.h"
#include "host/UVWTag.h"

PolygonObject* PolygonObject::Alloc(Int32 pointCount, Int32 polygonCount) {
  auto* op = static_cast<PolygonObject*>(BaseObject::Alloc(Opolygon));
  if (op && !op->ResizeObject(pointCount, polygonCount)) {
    BaseObject* base = op;
    BaseObject::Free(base);
    return nullptr;
  }
  return op;
}

Bool PolygonObject::ResizeObject(Int32 pointCount, Int32 polygonCount) {
  if (polygonCount < 0 || polygonCount > VariableTag::kMaxCount) return false;
  if (!ResizePoints(pointCount)) return false;
  polygons_.resize(polygonCount);
  for (BaseTag* tag = GetFirstTag(); tag; tag = tag->GetNext()) {
    if (auto* uvw = dynamic_cast<UVWTag*>(tag)) uvw->Resize(polygonCount);
    if (tag->GetType() == Tpolygonselection) {
      static_cast<SelectionTag*>(tag)->GetBaseSelect()->Cut(polygonCount);
    }
  }
  SetDirty(DIRTYFLAGS_DATA);
  return true;
}

BaseObject* PolygonObject::cloneObject() const {
  auto* clone = new PolygonObject();
  copyPointsTo(clone);
  clone->polygons_ = polygons_;
  return clone;
}
