// BaseSelect: a set of element numbers (points or polygons), selected or not.
#pragma once

#include <set>

#include "host/HostTypes.h"

class BaseSelect {
 public:
  // False for a negative number.
  Bool Select(Int32 index);
  Bool Deselect(Int32 index);
  Bool Toggle(Int32 index);
  Bool IsSelected(Int32 index) const { return selected_.count(index) != 0; }
  Bool SelectAll(Int32 min, Int32 max);
  void DeselectAll() { selected_.clear(); }
  Int32 GetCount() const { return static_cast<Int32>(selected_.size()); }
  // Removes every number at or beyond `count`.
  void Cut(Int32 count);
  const std::set<Int32>& GetSelected() const { return selected_; }
  void CopyTo(BaseSelect* target) const {
    if (target) target->selected_ = selected_;
  }
  bool operator==(const BaseSelect& other) const { return selected_ == other.selected_; }

 private:
  std::set<Int32> selected_;
};
