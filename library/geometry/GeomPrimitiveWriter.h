// GeomPrimitiveWriter: writes the three primitives of the geometry stream token by token, in the
// order a consumer expects, so that callers hand over plain lists instead of repeating the
// protocol. Knot lists are clamped uniform, as every generator writes them.
#pragma once

#include <vector>

#include "geometry/IMesh.h"
#include "geometry/OGeomStream.h"

namespace mv {

class GeomPrimitiveWriter {
 public:
  // nu columns and nv rows of points, row after row, of the given order in u and v; texture is
  // empty or two values (u, v) a point.
  static void writePatch(OGeomStream& stream, int nu, int nv, const std::vector<Vector3>& points,
                         const std::vector<double>& texture = {}, int order = 2);
  // One planar outline; texture is empty or two values a point.
  static void writeOutline(OGeomStream& stream, const std::vector<Vector3>& points,
                           const std::vector<double>& texture = {});
  // Quads (a triangle repeats its third index) over shared points: four indices and eight texture
  // values (u, v of each corner) a polygon.
  static void writeQuadMesh(OGeomStream& stream, const std::vector<int>& indices,
                            const std::vector<Vector3>& points, const std::vector<double>& texture);
  // The same primitive from a whole mesh: its polygons, points and texture corners.
  static void writeMesh(OGeomStream& stream, const IMesh& mesh);

 private:
  static void writeKnots(OGeomStream& stream, int count, int order);
  static void writeValueList(OGeomStream& stream, int kind, const std::vector<Vector3>& points);
  static void writeValueList(OGeomStream& stream, int kind, const std::vector<double>& values);
};

}  // namespace mv
