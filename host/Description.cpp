#include "host/Description.h"

Bool Description::SetParameter(const DescID& id, const BaseContainer& settings,
                               const DescID& parent) {
  for (Entry& entry : entries_) {
    if (entry.id == id) {
      entry.settings = settings;
      entry.parent = parent;
      return true;
    }
  }
  entries_.push_back({id, settings, parent});
  return true;
}

const BaseContainer* Description::GetParameterI(const DescID& id) const {
  for (const Entry& entry : entries_) {
    if (entry.id == id) return &entry.settings;
  }
  return nullptr;
}
