// ClassicPhiball: a classic arranger that places copies of its first child on a spherical band,
// in rows of equal area and turning by a constant angle (the golden angle by default) from one
// element to the next, so that they spiral like seeds on a flower head. With influence, large
// elements take more of the band than small ones. Further children are placed once.
#pragma once

#include "classic/ClassicNodeParameters.h"
#include "classic/ClassicSimple.h"

namespace mv {

class CurveParam;

class ClassicPhiball : public ClassicSimple {
 public:
  // Elements beyond this count only come from broken files.
  static constexpr int kMaxElements = 250000;

  // unit size, number 50, radius size / 2, influence 1, angle the golden angle, fan from -pi to
  // pi, scale 1, trans 0.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // Writes the group of role 4 whatever roleMask says; 0 for a missing curve or a number below 1.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

 private:
  struct Walk;
  static void evenRows(Walk& walk);
  // False when the shares cannot be formed (every scale 0), so that even rows stand instead.
  static bool rowsByInfluence(Walk& walk);
};

}  // namespace mv
