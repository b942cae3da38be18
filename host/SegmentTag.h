// SegmentTag: the segments of a line object (Tsegment).
#pragma once

#include <vector>

#include "host/Segment.h"
#include "host/VariableTag.h"

class SegmentTag : public VariableTag {
 public:
  SegmentTag() : VariableTag(Tsegment) {}
  Int32 GetDataCount() const override { return static_cast<Int32>(segments_.size()); }
  Bool Resize(Int32 count) override;
  const Segment* GetDataAddressR() const { return segments_.data(); }
  Segment* GetDataAddressW() { return segments_.data(); }

 protected:
  BaseTag* cloneTag() const override;

 private:
  std::vector<Segment> segments_;
};
