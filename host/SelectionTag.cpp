#include "host/SelectionTag.h"

BaseTag* SelectionTag::cloneTag() const {
  auto* clone = new SelectionTag(GetType());
  clone->selection_ = selection_;
  return clone;
}
