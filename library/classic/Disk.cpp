#include "classic/Disk.h"

#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "core/ParameterSet.h"

namespace mv {

bool Disk::initParameters(ParameterSet& params, double) {
  params.setInt(IdSlices, 4);
  params.setInt(IdStacks, 4);
  return true;
}

std::string& Disk::typeName(std::string& out) { return out = "Disk"; }

bool Disk::hasGeometry(ParameterSet&) { return true; }

bool Disk::assignRoles(ParameterSet&, std::vector<int>&, int) { return true; }

int Disk::evaluate(ParameterSet&, OGeomStream&, int, PlacementList&, double) { return RoleOther; }

}  // namespace mv
