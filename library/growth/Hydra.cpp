#include "growth/Hydra.h"

#include <algorithm>
#include <cmath>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/CurveParam.h"

namespace mv {

namespace {

struct HydraCurves {
  const CurveParam* sweep;
  const CurveParam* tilt;
  const CurveParam* scale;
  const CurveParam* nodeGrowth;
  const CurveParam* spin;
};

struct HydraSettings {
  double number;
  int count;
  bool fractional;
  double radius;
  int mode;
  bool growthCurved;
  double inheritedGrowth;
};

bool fetchCurves(ParameterSet& params, HydraCurves& curves) {
  curves.sweep = params.getCurve(Hydra::hydraSweep);
  curves.tilt = params.getCurve(Hydra::hydraTilt);
  curves.scale = params.getCurve(Hydra::scale);
  curves.nodeGrowth = params.getCurve(Hydra::nodeGrowth);
  curves.spin = params.getCurve(Hydra::hydraSpin);
  if (curves.sweep && curves.tilt && curves.scale && curves.nodeGrowth && curves.spin) return true;
  messageSink.error("Parameter Retrieval failed!");
  return false;
}

// The element's place on the ring or star, before its own spin and scale. The curves are read
// in the order the transforms are named, since an expression may draw from the shared generator.
void placeOnFigure(const HydraSettings& s, const HydraCurves& curves, double a, double b,
                   Matrix4& m) {
  if (s.mode == Hydra::ModeRing) {
    m.rotateX(-curves.sweep->evaluate(a));
    m.translate({0.0, 0.0, s.radius});
    m.rotateY(-curves.tilt->evaluate(b));
  } else if (s.mode == Hydra::ModeStar) {
    m.rotateZ(-curves.tilt->evaluate(b));
    m.rotateX(-curves.sweep->evaluate(a));
    m.translate({0.0, 0.0, s.radius});
  }
}

Placement element(const HydraSettings& s, const HydraCurves& curves, int i) {
  const double along = std::min(static_cast<double>(i), s.number) / s.number;
  const double a = s.fractional ? along : static_cast<double>(i) / s.count;
  const double b = s.count < 2 ? 0.0 : static_cast<double>(i) / (s.count - 1);
  Placement placement;
  Matrix4& m = placement.matrix;
  placeOnFigure(s, curves, a, b, m);
  m.rotateZ(-curves.spin->evaluate(b));
  const double size = curves.scale->evaluate(b);
  m.scale({size, size, size});
  const double rest = s.number - i;
  if (rest > 0.0 && rest < 1.0) m.scale({rest, rest, rest});  // the shrinking last element
  placement.wantsData = true;
  placement.position = along;
  placement.index = i;
  placement.count = s.count;
  placement.carriedGrowth = s.inheritedGrowth;
  if (s.growthCurved) placement.carriedGrowth *= curves.nodeGrowth->evaluate(b);
  return placement;
}

}  // namespace

bool Hydra::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setBool(numberFractional, true);
  params.setCurve(nodeGrowth, CurveParam(0.0, 1.0, 1.0, 1.0, "id"));
  params.setBool(nodeGrowthCurved, false);
  params.setDouble(number, 8.0);
  params.setDouble(radius, size * 0.5);
  params.setCurve(scale, CurveParam(-1.0, 2.0, 1.0, 1.0, "id"));
  params.setCurve(hydraTilt, CurveParam(-kPi / 2, kPi / 2, 0.0, 0.0, "id"));
  params.setCurve(hydraSpin, CurveParam(-kPi, kPi, 0.0, 0.0, "id"));
  params.setCurve(hydraSweep, CurveParam(-kPi, kPi, -kPi, kPi, "id"));
  params.setInt(hydraMode, ModeRing);
  return true;
}

std::string& Hydra::typeName(std::string& out) { return out = "Hydra"; }

bool Hydra::assignRoles(ParameterSet&, std::vector<int>& roles, int childCount) {
  for (int i = 0; i < childCount; ++i) roles.push_back(i == 0 ? RoleNodes : RoleOther);
  return true;
}

int Hydra::evaluate(ParameterSet& params, OGeomStream&, int roleMask, PlacementList& placements,
                    double) {
  HydraCurves curves;
  if (!fetchCurves(params, curves)) return 0;
  if (!(roleMask & RoleNodes)) return 0;
  HydraSettings s;
  s.number = params.getDouble(number);
  if (!(s.number > 0.0)) return 0;
  if (s.number > kMaxElements) {
    messageSink.error("Hydra: number out of range");
    return 0;
  }
  s.fractional = params.getBool(numberFractional);
  s.count = static_cast<int>(s.fractional ? std::ceil(s.number) : std::floor(s.number));
  s.radius = params.getDouble(radius);
  s.mode = params.getInt(hydraMode);
  s.growthCurved = params.getBool(nodeGrowthCurved);
  s.inheritedGrowth = params.getDouble(IdCarriedGrowth);
  PlacementGroup group;
  group.role = RoleNodes;
  group.placements.reserve(s.count);
  for (int i = 0; i < s.count; ++i) group.placements.push_back(element(s, curves, i));
  placements.push_back(std::move(group));
  return RoleNodes;
}

}  // namespace mv
