#include "host/PrimitiveShapes.h"

#include <algorithm>
#include <cmath>

#include "core/MathConstants.h"
#include "host/MeshBuilder.h"
#include "host/PolygonObject.h"

namespace {

constexpr Int32 kMaxSegments = 1000;

Int32 atLeast(Int32 value, Int32 minimum) { return std::clamp(value, minimum, kMaxSegments); }

// A point on a ring around y; the angle runs clockwise seen from +y so that rings and their
// height make outward surfaces.
Vector ring(Float radius, Float u, Float y) {
  Float phi = -2.0 * mt::kPi * u;
  return {radius * std::cos(phi), y, radius * std::sin(phi)};
}

void addFace(MeshBuilder& mesh, const Vector& normal, const Vector& e1, const Vector& e2,
             Int32 seg1, Int32 seg2) {
  mesh.addGrid(seg1, seg2,
               [&](Float u, Float v) { return normal + e1 * (2 * u - 1) + e2 * (2 * v - 1); });
}

// Caps of a solid of revolution: rings from the rim to the centre on top, the reverse below.
void addCap(MeshBuilder& mesh, Float radius, Float y, bool top, Int32 rings, Int32 around) {
  mesh.addGrid(around, rings,
               [&](Float u, Float v) { return ring(radius * (top ? 1 - v : v), u, y); });
}

PolygonObject* oriented(const MeshBuilder& mesh, const Matrix& orientation) {
  PolygonObject* poly = mesh.build();
  if (!poly) return nullptr;
  for (Int32 i = 0; i < poly->GetPointCount(); ++i) {
    poly->GetPointW()[i] = orientation * poly->GetPointR()[i];
  }
  return poly;
}

}  // namespace

PolygonObject* PrimitiveShapes::box(const Vector& size, Int32 segX, Int32 segY, Int32 segZ) {
  Vector h = size * 0.5;
  Vector x(h.x, 0, 0), y(0, h.y, 0), z(0, 0, h.z);
  segX = atLeast(segX, 1);
  segY = atLeast(segY, 1);
  segZ = atLeast(segZ, 1);
  MeshBuilder mesh;
  addFace(mesh, x, y, z, segY, segZ);
  addFace(mesh, -x, z, y, segZ, segY);
  addFace(mesh, y, z, x, segZ, segX);
  addFace(mesh, -y, x, z, segX, segZ);
  addFace(mesh, z, x, y, segX, segY);
  addFace(mesh, -z, y, x, segY, segX);
  return mesh.build();
}

PolygonObject* PrimitiveShapes::sphere(Float radius, Int32 segments) {
  Int32 around = atLeast(segments, 4);
  MeshBuilder mesh;
  mesh.addGrid(around, around / 2, [&](Float u, Float v) {
    Float theta = mt::kPi * v;
    return ring(radius * std::sin(theta), u, -radius * std::cos(theta));
  });
  return mesh.build();
}

PolygonObject* PrimitiveShapes::cone(Float bottomRadius, Float topRadius, Float height,
                                     Int32 heightSegments, Int32 capSegments,
                                     Int32 rotationSegments) {
  Int32 around = atLeast(rotationSegments, 3);
  Int32 caps = atLeast(capSegments, 1);
  Float half = height * 0.5;
  MeshBuilder mesh;
  mesh.addGrid(around, atLeast(heightSegments, 1), [&](Float u, Float v) {
    return ring(bottomRadius + (topRadius - bottomRadius) * v, u, -half + height * v);
  });
  addCap(mesh, bottomRadius, -half, false, caps, around);
  addCap(mesh, topRadius, half, true, caps, around);
  return mesh.build();
}

PolygonObject* PrimitiveShapes::disc(Float innerRadius, Float outerRadius, Int32 rings,
                                     Int32 rotationSegments, const Matrix& orientation) {
  MeshBuilder mesh;
  mesh.addGrid(atLeast(rotationSegments, 3), atLeast(rings, 1), [&](Float u, Float v) {
    return ring(outerRadius + (innerRadius - outerRadius) * v, u, 0.0);
  });
  return oriented(mesh, orientation);
}

PolygonObject* PrimitiveShapes::plane(Float width, Float depth, Int32 segX, Int32 segZ,
                                      const Matrix& orientation) {
  MeshBuilder mesh;
  addFace(mesh, Vector(), Vector(0, 0, depth * 0.5), Vector(width * 0.5, 0, 0), atLeast(segZ, 1),
          atLeast(segX, 1));
  return oriented(mesh, orientation);
}

Matrix PrimitiveShapes::axisOrientation(Int32 axis) {
  switch (axis) {
    case 0:
      return Matrix({}, {0, -1, 0}, {1, 0, 0}, {0, 0, 1});
    case 1:
      return Matrix({}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
    case 3:
      return Matrix({}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1});
    case 4:
      return Matrix({}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0});
    case 5:
      return Matrix({}, {1, 0, 0}, {0, 0, -1}, {0, 1, 0});
    default:
      return Matrix();
  }
}
