// VariableTag: a tag holding one record per point or polygon of its object, resized with it.
#pragma once

#include "host/BaseTag.h"

class VariableTag : public BaseTag {
 public:
  explicit VariableTag(Int32 type) : BaseTag(type) {}
  Bool IsVariable() const override { return true; }
  virtual Int32 GetDataCount() const = 0;
  // New records are zero; false when the count is negative or cannot be held.
  virtual Bool Resize(Int32 count) = 0;

  // The most records a tag, or an object, holds: larger requests are refused.
  static constexpr Int32 kMaxCount = 1 << 26;
};
