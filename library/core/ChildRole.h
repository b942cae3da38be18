// ChildRole: the bit that tells what a child of a node is for. A node assigns one per child;
// the caller ORs them into the roleMask that it hands to evaluate.
#pragma once

namespace mv {

enum ChildRole : int {
  RoleUnused = 0,
  RoleProfile = 1,  // read through parameter 1006; consumed while the node has geometry
  RolePath = 2,     // read as a spline through parameter 1007, never instanced
  RoleNodes = 4,    // elements placed at the nodes of the generator
  RoleEnd = 8,      // one element at the end of every open segment
  RoleOther = 16,   // every further child
};

}  // namespace mv
