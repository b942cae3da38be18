// UVWTag: the texture coordinates of each polygon's four corners (Tuvw).
#pragma once

#include <vector>

#include "host/VariableTag.h"
#include "host/Vector.h"

struct UVWStruct {
  Vector a, b, c, d;
  bool operator==(const UVWStruct& o) const { return a == o.a && b == o.b && c == o.c && d == o.d; }
};

class UVWTag : public VariableTag {
 public:
  UVWTag() : VariableTag(Tuvw) {}
  Int32 GetDataCount() const override { return static_cast<Int32>(uvw_.size()); }
  Bool Resize(Int32 count) override;
  // Out of range: zero corners on read, nothing on write.
  UVWStruct GetSlow(Int32 index) const;
  void SetSlow(Int32 index, const UVWStruct& value);

 protected:
  BaseTag* cloneTag() const override;

 private:
  std::vector<UVWStruct> uvw_;
};
