// LineTag: the parameter of each point of a line object along its segment, 0 to 1 (Tline).
#pragma once

#include <vector>

#include "host/VariableTag.h"

class LineTag : public VariableTag {
 public:
  LineTag() : VariableTag(Tline) {}
  Int32 GetDataCount() const override { return static_cast<Int32>(values_.size()); }
  Bool Resize(Int32 count) override;
  const Float* GetDataAddressR() const { return values_.data(); }
  Float* GetDataAddressW() { return values_.data(); }

 protected:
  BaseTag* cloneTag() const override;

 private:
  std::vector<Float> values_;
};
