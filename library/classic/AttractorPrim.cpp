#include "classic/AttractorPrim.h"

#include "core/ChildRole.h"

namespace mv {

bool AttractorPrim::initParameters(ParameterSet&, double) { return true; }

std::string& AttractorPrim::typeName(std::string& out) { return out = "AttractorPrim"; }

bool AttractorPrim::hasGeometry(ParameterSet&) { return true; }

bool AttractorPrim::assignRoles(ParameterSet&, std::vector<int>&, int) { return true; }

int AttractorPrim::evaluate(ParameterSet&, OGeomStream&, int, PlacementList&, double) {
  return RoleOther;
}

}  // namespace mv
