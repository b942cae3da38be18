// Description: the entries a form shows for a node: each a parameter id, a container of
// settings (name under key 1, short name under key 2, bounds, units, ...) and the id of the
// group it stands in.
#pragma once

#include <vector>

#include "host/BaseContainer.h"
#include "host/DescID.h"

constexpr Int32 DESC_NAME = 1;
constexpr Int32 DESC_SHORT_NAME = 2;

class Description {
 public:
  struct Entry {
    DescID id;
    BaseContainer settings;
    DescID parent;
  };

  // Adds the entry, or replaces the one of the same id.
  Bool SetParameter(const DescID& id, const BaseContainer& settings, const DescID& parent);
  const BaseContainer* GetParameterI(const DescID& id) const;
  const std::vector<Entry>& GetEntries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
};
