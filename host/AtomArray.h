// AtomArray: a list of nodes that a command hands back; it does not own them.
#pragma once

#include <vector>

#include "host/HostTypes.h"

class BaseList2D;

class AtomArray {
 public:
  Int32 GetCount() const { return static_cast<Int32>(nodes_.size()); }
  // Null outside the range.
  BaseList2D* GetIndex(Int32 index) const {
    return index >= 0 && index < GetCount() ? nodes_[index] : nullptr;
  }
  void Append(BaseList2D* node) { nodes_.push_back(node); }

 private:
  std::vector<BaseList2D*> nodes_;
};
