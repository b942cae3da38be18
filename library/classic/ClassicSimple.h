// ClassicSimple: the base of every node of the classic scene files, and a node of its own for
// cameras, groups, link nodes and null objects. As such it passes its children on, turned by the
// photo correction: a node may lean one axis toward a fixed light direction in the frame of the
// whole scene.
#pragma once

#include "core/Simple.h"

namespace mv {

// Parameters that every classic node shares.
enum ClassicParameterId : int {
  IdUnit = 20102,
  IdPhotoAxis = 20103,
  IdPhotoMode = 20104,
  IdPhotoStrength = 20105,
  IdDisplace = 20107,
};

class ClassicSimple : public Simple {
 public:
  // unit = size, photoAxis 0, photoMode 0, photoStrength 1.0, displace the zero curve.
  bool initParameters(ParameterSet& params, double size) override;
  std::string& typeName(std::string& out) override;
  // One placement of role 16 for all children: the photo correction of the node's frame, seen
  // from the scene's world frame. Returns 0 and places nothing when roleMask lacks 16.
  int evaluate(ParameterSet& params, OGeomStream& stream, int roleMask, PlacementList& placements,
               double lod) override;

  // The correction of this node for the frame matrix, from its photo parameters.
  virtual Matrix4& photoCorrection(Matrix4& out, ParameterSet& params, const Matrix4& matrix);
};

}  // namespace mv
