// VariableScope: the values that an expression reads for its one-letter variables. A few letters
// bound in front of a map, so that a caller can set x and u for one evaluation without copying
// the map: a bound letter hides the map's entry, and a letter found nowhere reads 0.0.
#pragma once

#include <map>

namespace mv {

using VariableMap = std::map<char, double>;

class VariableScope {
 public:
  static constexpr int kMaxBound = 4;

  explicit VariableScope(const VariableMap& base) : base_(&base) {}

  // Binds name to value, replacing an earlier binding; false when kMaxBound letters are bound.
  bool bind(char name, double value) {
    int slot = 0;
    while (slot < boundCount_ && names_[slot] != name) ++slot;
    if (slot == kMaxBound) return false;
    if (slot == boundCount_) names_[boundCount_++] = name;
    values_[slot] = value;
    return true;
  }

  double value(char name) const {
    for (int i = 0; i < boundCount_; ++i) {
      if (names_[i] == name) return values_[i];
    }
    const auto found = base_->find(name);
    return found != base_->end() ? found->second : 0.0;
  }

 private:
  const VariableMap* base_;  // not owned
  int boundCount_ = 0;
  char names_[kMaxBound] = {};
  double values_[kMaxBound] = {};
};

}  // namespace mv
