// DescID: the id of a parameter, one level or several (a sub-parameter of custom data has the
// parameter's level first). Each level carries an id, a value kind and its creator.
#pragma once

#include <vector>

#include "host/HostTypes.h"

struct DescLevel {
  Int32 id = 0;
  Int32 dtype = 0;
  Int32 creator = 0;
  DescLevel() = default;
  DescLevel(Int32 id, Int32 dtype = 0, Int32 creator = 0)
      : id(id), dtype(dtype), creator(creator) {}
};

class DescID {
 public:
  DescID() = default;
  DescID(Int32 id) : levels_{DescLevel(id)} {}
  DescID(const DescLevel& level) : levels_{level} {}
  DescID(const DescLevel& first, const DescLevel& second) : levels_{first, second} {}

  Int32 GetDepth() const { return static_cast<Int32>(levels_.size()); }
  const DescLevel& operator[](Int32 index) const { return levels_[index]; }
  void PushId(const DescLevel& level) { levels_.push_back(level); }
  // The id without its first level: the part that custom data dispatches on.
  DescID GetSubId() const {
    DescID rest;
    rest.levels_.assign(levels_.begin() + (levels_.empty() ? 0 : 1), levels_.end());
    return rest;
  }
  bool operator==(const DescID& other) const {
    if (levels_.size() != other.levels_.size()) return false;
    for (size_t i = 0; i < levels_.size(); ++i) {
      if (levels_[i].id != other.levels_[i].id) return false;
    }
    return true;
  }

 private:
  std::vector<DescLevel> levels_;
};
