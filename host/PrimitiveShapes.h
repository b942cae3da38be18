// PrimitiveShapes: the polygon objects of the host's solid primitives, centred on the origin,
// with UVs. Counts below their minimum are raised to it (segments 1, rotation segments 3).
//  - box: six faces, closed;
//  - sphere: `segments` around, half as many from pole to pole, closed;
//  - cone and cylinder: along y, height centred, with caps (a cone whose top radius is 0 ends
//    in a tip), closed;
//  - disc and plane: open, facing +y before their orientation.
// Every closed shape has outward normals (see MeshBuilder for the corner order).
#pragma once

#include "host/Matrix.h"

class PolygonObject;

class PrimitiveShapes {
 public:
  static PolygonObject* box(const Vector& size, Int32 segX, Int32 segY, Int32 segZ);
  static PolygonObject* sphere(Float radius, Int32 segments);
  static PolygonObject* cone(Float bottomRadius, Float topRadius, Float height,
                             Int32 heightSegments, Int32 capSegments, Int32 rotationSegments);
  static PolygonObject* disc(Float innerRadius, Float outerRadius, Int32 rings,
                             Int32 rotationSegments, const Matrix& orientation);
  static PolygonObject* plane(Float width, Float depth, Int32 segX, Int32 segZ,
                              const Matrix& orientation);
  // The rotation that turns +y to an axis: 0 +x, 1 -x, 2 +y, 3 -y, 4 +z, 5 -z (others +y).
  static Matrix axisOrientation(Int32 axis);
};
