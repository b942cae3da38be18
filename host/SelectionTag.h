// SelectionTag: a named selection of polygons (Tpolygonselection) or points (Tpointselection);
// the tag's name is the selection's name.
#pragma once

#include "host/BaseSelect.h"
#include "host/BaseTag.h"

class SelectionTag : public BaseTag {
 public:
  explicit SelectionTag(Int32 type) : BaseTag(type) {}
  BaseSelect* GetBaseSelect() { return &selection_; }
  const BaseSelect* GetBaseSelect() const { return &selection_; }

 protected:
  BaseTag* cloneTag() const override;

 private:
  BaseSelect selection_;
};
