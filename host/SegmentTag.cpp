#include "host/SegmentTag.h"

Bool SegmentTag::Resize(Int32 count) {
  if (count < 0 || count > kMaxCount) return false;
  segments_.resize(count);
  return true;
}

BaseTag* SegmentTag::cloneTag() const {
  auto* clone = new SegmentTag();
  clone->segments_ = segments_;
  return clone;
}
