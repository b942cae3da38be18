// Tropism: a spline deformer that bends a path point by point toward a direction, as stems bend
// toward light or against gravity. Each step of the path turns the whole rest of the path about
// the step's start, by an angle that comes from the integral of the strength curve over the
// step's parameter interval, so that the bend does not depend on how finely the path is sampled.
// A negative strength bends away. The direction is a fixed axis, the way toward a target, or the
// tangent of a target spline. Writes no geometry, places nothing, draws no random numbers.
#pragma once

#include "core/Simple.h"

namespace mv {

class Tropism : public virtual Simple {
 public:
  enum ParameterId : int {
    tropismMode = 1101,      // int: 0 fixed axis, 1 toward the target, 2 along the target spline
    tropismAxis = 7000,      // int: mode 0: +x, -x, +y, -y, +z, -z; another value counts as +z
    tropismStrength = 7001,  // curve: bend strength along the path
    tropismTarget = 7002,    // node: gives a world matrix and, in mode 2, a spline
    tropismFollowGrowth = 7003,  // bool: curve coordinates follow the owner's growth
  };
  enum Mode : int { ModeAxis = 0, ModeTowardTarget = 1, ModeAlongTarget = 2 };

  // Defaults: mode 0, axis +z, strength 0.2 over the range -1 to 1, not following growth.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  int modifierKinds() override;
  // Bends every segment of spline in place; toWorld carries the spline's points to world space.
  // False, with "Parameter Retrieval failed!", when the strength curve is missing. In mode 2
  // without a target spline, and for a path that has not grown (following growth with growth
  // 0), nothing moves and the result is true.
  bool deformSpline(ParameterSet& params, Spline& spline, const Matrix4& toWorld) override;
};

}  // namespace mv
