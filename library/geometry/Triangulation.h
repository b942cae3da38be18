// Triangulation: turns one simple planar outline in 3D into triangles over the same points, for
// end caps, leaf outlines and the like. Ear clipping gives a valid triangulation; edge flipping
// then improves the triangle shapes. Both work in the plane that the outline's bounding box
// suggests (see projectionAxis). No point is added or moved.
//
// Not reentrant: the flipping stage keeps its edge table in process-wide state, so only one
// triangulation may run at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Vector3.h"

namespace mv {

// The projection plane from the extents of the outline's bounding box: 1 is (x, z), 2 is (x, y),
// 0 is (y, z). Ties fall through to 0.
int projectionAxis(const std::vector<Vector3>& points);

// Fills triangles with n - 2 index triples into points and returns true; seen in the projection
// plane they turn the same way as the outline. Fewer than three points, a self-intersecting
// outline or one with coincident or all collinear corners gives false and an error through
// messageSink ("Triangulation: Probable Bad Polygon! " and the count of triangles made).
// With improve set, the triangles are then improved by flipping edges.
bool triangulate(const std::vector<Vector3>& points, std::vector<uint32_t>& triangles,
                 bool improve);

// The flipping stage, for counter-clockwise triangles in the plane of axis: an inner edge is
// flipped when the better of the two new triangles is better (smaller circumradius) than the
// better of the two old ones by more than rounding (a relative 1e-9). Diagnostics go to standard
// error. False when the triangles are inconsistent, or, silently, when an index names no point
// or n * n + 64 flips did not finish; the triangles are then as valid as they were given,
// though not fully improved.
bool improveTriangles(const std::vector<Vector3>& points, std::vector<uint32_t>& triangles,
                      int axis);

}  // namespace mv
