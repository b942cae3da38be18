#include "host/UVWTag.h"

Bool UVWTag::Resize(Int32 count) {
  if (count < 0 || count > kMaxCount) return false;
  uvw_.resize(count);
  return true;
}

UVWStruct UVWTag::GetSlow(Int32 index) const {
  return index >= 0 && index < GetDataCount() ? uvw_[index] : UVWStruct();
}

void UVWTag::SetSlow(Int32 index, const UVWStruct& value) {
  if (index >= 0 && index < GetDataCount()) uvw_[index] = value;
}

BaseTag* UVWTag::cloneTag() const {
  auto* clone = new UVWTag();
  clone->uvw_ = uvw_;
  return clone;
}
