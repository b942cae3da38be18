#include "geometry/IMesh.h"

#include <algorithm>

namespace mv {

bool IMesh::getBoundingBox(Vector3& min, Vector3& max) const {
  const uint32_t count = getPointCount();
  if (count == 0) return false;
  min = {1e38, 1e38, 1e38};
  max = {-1e38, -1e38, -1e38};
  Vector3 point;
  for (uint32_t i = 0; i < count; ++i) {
    getPoint(i, point);
    min = {std::min(min.x, point.x), std::min(min.y, point.y), std::min(min.z, point.z)};
    max = {std::max(max.x, point.x), std::max(max.y, point.y), std::max(max.z, point.z)};
  }
  return true;
}

}  // namespace mv
