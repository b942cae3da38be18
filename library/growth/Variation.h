// Variation: picks one of its children for each instance, so that a generator above it shows
// different objects at its places. The choice is made in assignRoles, from the instance's index
// and count (ids 6001, 6002) handed down by the placement above: the chosen child gets role 16,
// every other role 0, and the default evaluate places the chosen child at the identity. The
// choice is a pure function of the parameters: mode 2 seeds a fresh generator on every call.
#pragma once

#include "core/Simple.h"

namespace mv {

class Variation : public virtual Simple {
 public:
  enum ParameterId : int {
    variationMode = 1000,      // int: 0 by index, 1 by relative index, 2 random, 3 special index
    variationSeed = 1001,      // int: seed of mode 2
    variationIndex = 1002,     // int: the special index of mode 3
    distanceMode = 9003,       // int: stored; no effect on the choice
    distanceNear = 9004,       // double: stored; no effect
    distanceFar = 9005,        // double: stored; no effect
    distanceReference = 9006,  // node: when linked, a debug message says so
  };
  enum Mode : int { ModeIndex = 0, ModeRelative = 1, ModeRandom = 2, ModeSpecial = 3 };

  // Defaults: random mode, seed 4357, special index 0, distance mode 0, near 0, far 100.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  // Role 16 for the selected child, 0 for the others; all 0 when the selection falls outside
  // the children (a random draw of exactly 1, a negative index in mode 0).
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;

  // The child that the parameters select; may lie outside 0 to childCount - 1.
  static int selectChild(ParameterSet& params, int childCount);
};

}  // namespace mv
