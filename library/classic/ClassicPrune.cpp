#include "classic/ClassicPrune.h"

#include "core/ChildRole.h"

namespace mv {

std::string& ClassicPrune::typeName(std::string& out) { return out = "ClassicPrune"; }

bool ClassicPrune::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  for (int i = 0; i < childCount; ++i)
    roles.push_back(i + 1 == childCount ? RoleOther : RoleUnused);
  return true;
}

}  // namespace mv
