#include "geometry/OMesh.h"

#include "geometry/IMesh.h"

namespace mv {

bool OMesh::addMesh(const IMesh& source, const Matrix4& transform, int material) {
  const uint32_t pointCount = source.getPointCount();
  const uint32_t polygonCount = source.getPolygonCount();
  uint32_t firstPoint = 0, firstPolygon = 0;
  if (!allocate(pointCount, polygonCount, firstPoint, firstPolygon)) return false;
  Vector3 point;
  for (uint32_t i = 0; i < pointCount; ++i) {
    source.getPoint(i, point);
    setPoint(firstPoint + i, transform.transformPoint(point));
  }
  MeshPolygon polygon;
  TexturePolygon texture;
  for (uint32_t i = 0; i < polygonCount; ++i) {
    source.getPolygon(i, polygon);
    polygon.a += firstPoint;
    polygon.b += firstPoint;
    polygon.c += firstPoint;
    polygon.d += firstPoint;
    if (material >= 0) polygon.material = material;
    setPolygon(firstPolygon + i, polygon);
    source.getTexturePolygon(i, texture);
    setTexturePolygon(firstPolygon + i, texture);
  }
  return true;
}

}  // namespace mv
