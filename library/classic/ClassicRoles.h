// ClassicRoles: the roles of a classic node's children: the first few by position, every
// further child role 16.
#pragma once

#include <initializer_list>
#include <vector>

#include "core/ChildRole.h"

namespace mv {

inline void assignLeadingRoles(std::vector<int>& roles, int childCount,
                               std::initializer_list<int> leading) {
  int i = 0;
  for (int role : leading) {
    if (i++ >= childCount) return;
    roles.push_back(role);
  }
  for (; i < childCount; ++i) roles.push_back(RoleOther);
}

}  // namespace mv
