#include "geometry/GeomPrimitiveWriter.h"

#include <algorithm>

namespace mv {

void GeomPrimitiveWriter::writePatch(OGeomStream& stream, int nu, int nv,
                                     const std::vector<Vector3>& points,
                                     const std::vector<double>& texture, int order) {
  stream << CmdPatch;
  writeKnots(stream, nu, order);
  writeKnots(stream, nv, order);
  writeValueList(stream, ParamPoints, points);
  if (!texture.empty()) writeValueList(stream, ParamTexture, texture);
}

void GeomPrimitiveWriter::writeOutline(OGeomStream& stream, const std::vector<Vector3>& points,
                                       const std::vector<double>& texture) {
  stream << CmdPolygon << 1 << '[' << static_cast<int>(points.size()) << ']';
  writeValueList(stream, ParamPoints, points);
  if (!texture.empty()) writeValueList(stream, ParamTexture, texture);
}

void GeomPrimitiveWriter::writeQuadMesh(OGeomStream& stream, const std::vector<int>& indices,
                                        const std::vector<Vector3>& points,
                                        const std::vector<double>& texture) {
  stream << CmdPolygonMesh << static_cast<int>(indices.size() / 4) << '[';
  for (int index : indices) stream << index;
  stream << ']' << '[';
  writeValueList(stream, ParamPoints, points);
  stream << '[';
  writeValueList(stream, ParamTexture, texture);
}

// count, order, [knots], minimum, maximum: order copies of 0, the inner knots, order copies of
// the span count.
void GeomPrimitiveWriter::writeKnots(OGeomStream& stream, int count, int order) {
  const int spans = std::max(count - order + 1, 0);
  stream << count << order << '[';
  for (int k = 0; k < order; ++k) stream << 0.0;
  for (int k = 1; k < spans; ++k) stream << static_cast<double>(k);
  for (int k = 0; k < order; ++k) stream << static_cast<double>(spans);
  stream << ']' << 0.0 << static_cast<double>(spans);
}

void GeomPrimitiveWriter::writeValueList(OGeomStream& stream, int kind,
                                         const std::vector<Vector3>& points) {
  stream.param(kind) << '[';
  for (const Vector3& point : points) stream << point;
  stream << ']';
}

void GeomPrimitiveWriter::writeValueList(OGeomStream& stream, int kind,
                                         const std::vector<double>& values) {
  stream.param(kind) << '[';
  for (double value : values) stream << value;
  stream << ']';
}

// A polygon mesh primitive: the count, the corner indices, the points, eight texture values a
// polygon.
void GeomPrimitiveWriter::writeMesh(OGeomStream& stream, const IMesh& mesh) {
  const uint32_t polygonCount = mesh.getPolygonCount();
  stream << CmdPolygonMesh << static_cast<int>(polygonCount) << '[';
  MeshPolygon polygon;
  for (uint32_t i = 0; i < polygonCount; ++i) {
    mesh.getPolygon(i, polygon);
    stream << static_cast<int>(polygon.a) << static_cast<int>(polygon.b)
           << static_cast<int>(polygon.c) << static_cast<int>(polygon.d);
  }
  stream << ']' << '[';
  stream.param(ParamPoints);
  Vector3 point;
  for (uint32_t i = 0; i < mesh.getPointCount(); ++i) {
    mesh.getPoint(i, point);
    stream << point;
  }
  stream << ']' << '[';
  stream.param(ParamTexture);
  TexturePolygon texture;
  for (uint32_t i = 0; i < polygonCount; ++i) {
    mesh.getTexturePolygon(i, texture);
    for (const Vector3* corner : {&texture.a, &texture.b, &texture.c, &texture.d}) {
      stream << corner->x << corner->y;
    }
  }
  stream << ']';
}

}  // namespace mv
