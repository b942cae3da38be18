// ClassicTropism: bends a chain of classic frames toward +z (phototropism) and -z
// (gravitropism), frame by frame, in the frame of the whole scene. Each frame keeps its place
// relative to the one before; only its direction turns.
#pragma once

#include <vector>

#include "classic/TreeFrame.h"

namespace mv {

class CurveParam;

// The curves are read at x / growth, clamped to 0 to 1 and multiplied by multiplier; sceneFrame
// carries a frame of the chain into the scene's frame (the inverse world matrix of the node).
void applyTropism(const CurveParam& phototropism, const CurveParam& gravitropism,
                  std::vector<TreeFrame>& frames, const Matrix4& sceneFrame, double growth,
                  double multiplier);

}  // namespace mv
