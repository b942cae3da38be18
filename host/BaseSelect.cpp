#include "host/BaseSelect.h"

Bool BaseSelect::Select(Int32 index) {
  if (index < 0) return false;
  selected_.insert(index);
  return true;
}

Bool BaseSelect::Deselect(Int32 index) {
  if (index < 0) return false;
  selected_.erase(index);
  return true;
}

Bool BaseSelect::Toggle(Int32 index) {
  if (index < 0) return false;
  return IsSelected(index) ? Deselect(index) : Select(index);
}

Bool BaseSelect::SelectAll(Int32 min, Int32 max) {
  if (min < 0 || max < min) return false;
  for (Int32 i = min; i <= max; ++i) selected_.insert(i);
  return true;
}

void BaseSelect::Cut(Int32 count) {
  selected_.erase(selected_.lower_bound(count), selected_.end());
}
