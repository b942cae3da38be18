// CornerNormals: a normal for each corner of each polygon, for formats that shade with vertex
// normals. A corner's normal is the area-weighted mean of the normals of the polygons around its
// point that lie within creaseAngle (radians) of the corner's own polygon: surfaces bend smoothly
// across shallow edges and keep a hard edge across sharper ones. Polygons that share no point
// (separate primitives, such as a tube and its cap) never blend.
//
// Normals are computed when asked for, from a table of face normals and of the polygons around
// each point (about 32 bytes per polygon), so that a writer never holds four per polygon.
#pragma once

#include <array>
#include <vector>

#include "geometry/IMesh.h"

namespace mv {

class CornerNormals {
 public:
  CornerNormals(const IMesh& mesh, double creaseAngle);

  // The unit normal of corner (0 to 3, in order a, b, c, d) of a polygon, by the right-hand
  // rule. A polygon without area takes its neighbours' mean, or +z when it has none.
  Vector3 at(uint32_t polygon, int corner) const;

 private:
  struct Face {
    std::array<float, 3> unit;  // zero when the polygon has no area
    float area;                 // twice the area
  };

  void collectFaces();
  void collectPolygonsAroundPoints();

  const IMesh& mesh_;
  double limit_;  // cosine of the crease angle
  std::vector<Face> faces_;
  std::vector<uint32_t> start_, around_;  // polygons around point p: around_[start_[p]...]
};

}  // namespace mv
