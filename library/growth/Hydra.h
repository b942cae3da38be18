// Hydra: sets copies of its first child on a ring or a star. Each element stands at a radius
// from the centre; curves over the element sequence give its sweep (angle on the ring), tilt,
// spin about its own axis and scale. A fractional number of elements shows as a last element
// that shrinks by the fraction. Writes no geometry and draws no random numbers.
//
// Roles: the first child gets 4 and every element, further children 16 and nothing.
#pragma once

#include "core/Simple.h"

namespace mv {

class Hydra : public virtual Simple {
 public:
  enum ParameterId : int {
    numberFractional = 1105,  // bool: a fractional number adds a shrinking last element
    nodeGrowth = 1303,        // curve: an element's carried growth over the sequence
    nodeGrowthCurved = 1323,  // bool: multiply the inherited growth by nodeGrowth
    number = 1500,            // double: element count
    radius = 1501,            // double: distance of the elements from the centre
    scale = 1503,             // curve: element scale
    hydraTilt = 1601,         // curve: second angle of an element
    hydraSpin = 1602,         // curve: turn about the element's own z axis
    hydraSweep = 1603,        // curve: angle of an element on the ring
    hydraMode = 1605,         // int: 0 ring, 1 star
  };
  enum Mode : int { ModeRing = 0, ModeStar = 1 };

  // More elements than this are refused with an error: a wild count must not exhaust memory.
  static constexpr double kMaxElements = 1e6;

  // Defaults: 8 elements, fractional, radius size / 2, ring, sweep -pi to pi, no tilt or spin,
  // scale 1, nodeGrowth 1 (not applied).
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // One group of role 4 with the elements in sequence; 0 when a curve is missing ("Parameter
  // Retrieval failed!"), role 4 is not asked for or number is not above 0.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;
};

}  // namespace mv
