// AliasTrans: a record of the originals and copies of one cloning. Translate points links that
// named an original at its copy, in the containers of all copies.
#pragma once

#include <unordered_map>
#include <vector>

#include "host/HostTypes.h"

class BaseContainer;
class BaseDocument;
class BaseList2D;

class AliasTrans {
 public:
  Bool Init(const BaseDocument* /*doc*/) { return true; }
  void Record(const BaseList2D* original, BaseList2D* copy);
  void Translate(Bool connectOldGoals);

 private:
  void translateContainer(BaseContainer& container) const;

  std::unordered_map<Int64, Int64> copyOf_;  // unique id of an original to that of its copy
  std::vector<Int64> copies_;
};
