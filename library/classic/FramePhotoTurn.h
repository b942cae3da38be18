// FramePhotoTurn: the photo correction of a classic tree, which grows along the trunk: a frame
// further up leans further toward the light (or, with a negative strength, a little away).
#pragma once

#include "core/Matrix4.h"

namespace mv {

// The correction for the node's scene frame at trunk parameter x; the frame's own matrix does
// not enter. axis 0 leans x, 1 leans y, any other value z.
Matrix4 framePhotoTurn(const Matrix4& sceneFrame, int axis, double strength, double x);

}  // namespace mv
