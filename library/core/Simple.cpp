#include "core/Simple.h"

#include "core/ChildRole.h"

namespace mv {

bool Simple::initParameters(ParameterSet&, double) { return true; }

std::string& Simple::typeName(std::string& out) { return out = "Simple"; }

bool Simple::hasGeometry(ParameterSet&) { return false; }

bool Simple::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  for (int i = 0; i < childCount; ++i) roles.push_back(RoleOther);
  return true;
}

// Passes every further child through unchanged: one placement at the identity.
int Simple::evaluate(ParameterSet&, OGeomStream&, int roleMask, PlacementList& placements, double) {
  if (!(roleMask & RoleOther)) return 0;
  PlacementGroup group;
  group.role = RoleOther;
  group.placements.emplace_back();
  placements.push_back(std::move(group));
  return RoleOther;
}

int Simple::modifierKinds() { return 0; }

bool Simple::deformSpline(ParameterSet&, Spline&, const Matrix4&) { return false; }

bool Simple::deformPoints(ParameterSet&, EditableMesh&, PlacementList&, Node&) { return false; }

bool Simple::finishMesh(ParameterSet&, EditableMesh&) { return false; }

int roleMaskOf(const std::vector<int>& roles) {
  int mask = 0;
  for (int role : roles) mask |= role;
  return mask;
}

}  // namespace mv
