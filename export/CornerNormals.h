// CornerNormals: a normal for each corner of each polygon, for formats that shade with vertex
// normals. A corner's normal is the area-weighted mean of the normals of the polygons around its
// point that lie within creaseAngle (radians) of the corner's own polygon: surfaces bend smoothly
// across shallow edges and keep a hard edge across sharper ones. Polygons that share no point
// (separate primitives, such as a tube and its cap) never blend.
#pragma once

#include <vector>

#include "geometry/IMesh.h"

namespace mv {

class CornerNormals {
 public:
  // Four unit normals per polygon in corner order a, b, c, d, by the right-hand rule. A polygon
  // without area takes its neighbours' mean, or +z when it has none.
  static std::vector<Vector3> compute(const IMesh& mesh, double creaseAngle);

 private:
  static std::vector<Vector3> faceNormals(const IMesh& mesh);
};

}  // namespace mv
