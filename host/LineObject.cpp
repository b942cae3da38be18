#include "host/LineObject.h"

#include "host/LineTag.h"
#include "host/SegmentTag.h"

LineObject* LineObject::Alloc(Int32 pointCount, Int32 segmentCount) {
  auto* line = static_cast<LineObject*>(BaseObject::Alloc(Oline));
  if (!line) return nullptr;
  bool ok = line->MakeVariableTag(Tsegment, 0) && line->MakeVariableTag(Tline, 0) &&
            line->ResizeObject(pointCount, segmentCount);
  if (!ok) {
    BaseObject* base = line;
    BaseObject::Free(base);
    return nullptr;
  }
  return line;
}

Bool LineObject::ResizeObject(Int32 pointCount, Int32 segmentCount) {
  LineTag* lineTag = GetLineTag();
  SegmentTag* segmentTag = GetSegmentTag();
  if (!lineTag || !segmentTag || segmentCount < 0 || segmentCount > VariableTag::kMaxCount ||
      !ResizePoints(pointCount)) {
    return false;
  }
  lineTag->Resize(pointCount);
  segmentTag->Resize(segmentCount);
  SetDirty(DIRTYFLAGS_DATA);
  return true;
}

LineTag* LineObject::GetLineTag() const { return static_cast<LineTag*>(GetTag(Tline)); }

SegmentTag* LineObject::GetSegmentTag() const { return static_cast<SegmentTag*>(GetTag(Tsegment)); }

Int32 LineObject::GetSegmentCount() const {
  SegmentTag* tag = GetSegmentTag();
  return tag ? tag->GetDataCount() : 0;
}

const Segment* LineObject::GetSegmentR() const {
  SegmentTag* tag = GetSegmentTag();
  return tag ? tag->GetDataAddressR() : nullptr;
}

const Float* LineObject::GetLineR() const {
  LineTag* tag = GetLineTag();
  return tag ? tag->GetDataAddressR() : nullptr;
}

BaseObject* LineObject::cloneObject() const {
  auto* clone = new LineObject();
  copyPointsTo(clone);
  return clone;
}
