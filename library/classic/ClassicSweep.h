// ClassicSweep: the tube of the classic tree, horn and leaf. Each segment of a profile spline is
// carried through the frames of a chain and written as one bilinear patch; the ring radius
// follows a shape curve, the profile may be displaced outward, and growth cuts the chain short.
#pragma once

#include <vector>

#include "classic/TreeFrame.h"

namespace mv {

class CurveParam;
class OGeomStream;
class ParameterSet;
class Spline;

// growth (clamped to 0 to 1) is the share of the chain that stands: the last ring blends the
// frames around it. The shape curve is read at x / growth, times thickness. With closeTip the
// last ring shrinks to a point. Writes nothing for growth at most 1e-8 or fewer than two frames.
void writeSweep(OGeomStream& stream, const std::vector<TreeFrame>& frames, const CurveParam& shape,
                const Spline& profile, double growth, double thickness, bool closeTip,
                const CurveParam& displace);

// The tube of a classic node: the spline of the profile node (id 1006), carried back through
// that node's local matrix in the given unit, swept along frames. Nothing without a profile.
void writeProfileSweep(ParameterSet& params, OGeomStream& stream,
                       const std::vector<TreeFrame>& frames, const CurveParam& shape, double unit,
                       double growth, double thickness, bool closeTip, const CurveParam& displace);

}  // namespace mv
