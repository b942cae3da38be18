#include "host/LineTag.h"

Bool LineTag::Resize(Int32 count) {
  if (count < 0 || count > kMaxCount) return false;
  values_.resize(count);
  return true;
}

BaseTag* LineTag::cloneTag() const {
  auto* clone = new LineTag();
  clone->values_ = values_;
  return clone;
}
