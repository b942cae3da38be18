// SolidParameters: the parameter ids of the primitives of a scene file (box, sphere, cone,
// cylinder, plane, disk and the attractor carrier).
#pragma once

namespace mv {

enum SolidParameterId : int {
  IdSlices = 10000,
  IdStacks = 10001,
  IdBoxResolution = 10003,
  IdSphereRadius = 10100,
  IdConeRadius = 10200,
  IdConeHeight = 10201,
  IdCylinderRadius = 10300,
  IdCylinderHeight = 10301,
  IdPlaneSize = 10400,
  IdPlaneFacing = 10401,
  IdDiskRadius = 10500,
  IdBoxSize = 10600,
  IdAttractorCenter = 5000,
  IdAttractorStrength = 5001,
  IdAttractorMode = 5002,
};

// planeFacing values: the axis of a plane's normal.
enum PlaneFacing : int {
  FacingPlusX = 0,
  FacingMinusX = 1,
  FacingPlusY = 2,
  FacingMinusY = 3,
  FacingPlusZ = 4,
  FacingMinusZ = 5,
};

}  // namespace mv
