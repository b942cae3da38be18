#include "geometry/MeshData.h"

#include <exception>
#include <limits>

namespace mv {

uint32_t MeshData::getPointCount() const { return static_cast<uint32_t>(points.size()); }

uint32_t MeshData::getPolygonCount() const { return static_cast<uint32_t>(polygons.size()); }

void MeshData::getPoint(uint32_t index, Vector3& out) const {
  out = index < points.size() ? points[index] : Vector3();
}

void MeshData::getPolygon(uint32_t index, MeshPolygon& out) const {
  out = index < polygons.size() ? polygons[index] : MeshPolygon();
}

void MeshData::getTexturePolygon(uint32_t index, TexturePolygon& out) const {
  out = index < texturePolygons.size() ? texturePolygons[index] : TexturePolygon();
}

bool MeshData::resize(uint32_t pointCount, uint32_t polygonCount) {
  points.resize(pointCount);
  polygons.resize(polygonCount);
  texturePolygons.resize(polygonCount);
  return true;
}

bool MeshData::allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                        uint32_t& firstPolygon) {
  constexpr uint32_t kMax = std::numeric_limits<uint32_t>::max();
  firstPoint = getPointCount();
  firstPolygon = getPolygonCount();
  // Indices are 32 bits wide: a request that would overflow them cannot be had.
  if (pointCount > kMax - firstPoint || polygonCount > kMax - firstPolygon) return false;
  try {
    return resize(firstPoint + pointCount, firstPolygon + polygonCount);
  } catch (const std::exception&) {  // bad_alloc or length_error
    resize(firstPoint, firstPolygon);
    return false;
  }
}

bool MeshData::finish() { return true; }

bool MeshData::setPoint(uint32_t index, const Vector3& point) {
  if (index >= points.size()) return false;
  points[index] = point;
  return true;
}

bool MeshData::setPolygon(uint32_t index, const MeshPolygon& polygon) {
  if (index >= polygons.size()) return false;
  polygons[index] = polygon;
  return true;
}

bool MeshData::setTexturePolygon(uint32_t index, const TexturePolygon& texture) {
  if (index >= texturePolygons.size()) return false;
  texturePolygons[index] = texture;
  return true;
}

bool MeshData::setSelection(const std::string& name, const std::set<uint32_t>& polygonSet) {
  selections[name] = polygonSet;
  return true;
}

}  // namespace mv
