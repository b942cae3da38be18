#include "growth/Branch.h"

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "curves/CurveParam.h"

namespace mv {
namespace {

// A curve that is the same everywhere, drawn as two corner points.
CurveParam constantCurve(double minimum, double maximum, double value) {
  return CurveParam(minimum, maximum, value, value, "id");
}

// Thickness falls from 1 to 0 as a quarter cosine, kept as five smooth points.
CurveParam defaultThickness() {
  CurveParam curve(-kPi, kPi, 0.0, kHalfPi, "cos");
  curve.resample(5, PointSmooth);
  return curve;
}

void writeCurves(ParameterSet& params) {
  params.setCurve(Branch::thickness, defaultThickness());
  params.setCurve(Branch::nodeGrowth, CurveParam(0.0, 1.0, 0.5, 0.5, 0.0, PointSmooth));
  params.setCurve(Branch::nodeAngle, constantCurve(0.0, kPi, kHalfPi));
  params.setCurve(Branch::nodeFlap, constantCurve(-kHalfPi, kPi, 0.0));
  params.setCurve(Branch::nodeDistribution, CurveParam(0.0, 1.0, 0.0, 0.5, 0.2, PointCorner));
  params.setCurve(Branch::nodeScale, constantCurve(0.0, 4.0, 1.0));
  params.setCurve(Branch::nodeScrew, constantCurve(0.0, kTwoPi, Branch::kGoldenScrew));
  params.setCurve(Branch::nodeDensity, constantCurve(0.0, 4.0, 1.0));
}

void writeValues(ParameterSet& params) {
  params.setDouble(Branch::pathGrowth, 1.0);
  params.setBool(Branch::pathGrowthInherited, true);
  params.setBool(Branch::thicknessInherited, true);
  params.setInt(Branch::curveMapping, 1);
  params.setBool(Branch::capStart, false);
  params.setBool(Branch::capEnd, false);
  params.setBool(Branch::nodeThicknessCurved, true);
  params.setDouble(Branch::nodeNumber, 10.0);
  params.setBool(Branch::nodeNumberInherited, true);
  params.setInt(Branch::nodeWhorl, 1);
  params.setInt(Branch::nodeMode, 0);
  params.setBool(Branch::nodeGrowthCurved, true);
  params.setBool(Branch::nodeDensityCurved, true);
  params.setInt(Branch::nodeArrangement, 1);
}

}  // namespace

// No default is a length, so size changes nothing.
bool Branch::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  writeValues(params);
  writeCurves(params);
  return true;
}

std::string& Branch::typeName(std::string& out) { return out = "Branch"; }

bool Branch::hasGeometry(ParameterSet& params) {
  return params.getSpline(profileSpline) != nullptr && params.getSpline(pathSpline) != nullptr;
}

bool Branch::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  static const int kRoles[] = {RoleProfile, RolePath, RoleNodes, RoleEnd};
  for (int i = 0; i < childCount; ++i) roles.push_back(i < 4 ? kRoles[i] : RoleOther);
  return true;
}

int Branch::evaluate(ParameterSet& params, OGeomStream& stream, int roleMask,
                     PlacementList& placements, double lod) {
  const int placed = computePlacements(params, roleMask, placements, lod);
  if (hasGeometry(params)) writeTube(params, stream, placements);
  return placed;
}

int Branch::placeChildren(ParameterSet& params, int roleMask, PlacementList& placements,
                          double lod) {
  return computePlacements(params, roleMask, placements, lod);
}

bool Branch::applyNodeArrangement(ParameterSet& params, int arrangement) {
  if (arrangement < 1 || arrangement > 6) return false;
  const bool halfFlap = arrangement % 2 == 0;
  const double screw = arrangement <= 2 ? kGoldenScrew : kPi;
  params.setCurve(nodeFlap, constantCurve(-kPi, kTwoPi, halfFlap ? kHalfPi : kPi));
  params.setCurve(nodeScrew, constantCurve(0.0, kTwoPi, screw));
  params.setInt(nodeWhorl, 1);
  params.setInt(nodeMode, arrangement >= 5 ? 1 : 0);
  params.setInt(nodeArrangement, arrangement);
  return true;
}

}  // namespace mv
