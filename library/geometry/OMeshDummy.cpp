#include "geometry/OMeshDummy.h"

namespace mv {

bool OMeshDummy::allocate(uint32_t, uint32_t, uint32_t& firstPoint, uint32_t& firstPolygon) {
  firstPoint = 0;
  firstPolygon = 0;
  return true;
}

bool OMeshDummy::finish() { return true; }
bool OMeshDummy::setPoint(uint32_t, const Vector3&) { return true; }
bool OMeshDummy::setPolygon(uint32_t, const MeshPolygon&) { return true; }
bool OMeshDummy::setTexturePolygon(uint32_t, const TexturePolygon&) { return true; }
bool OMeshDummy::setSelection(const std::string&, const std::set<uint32_t>&) { return true; }

}  // namespace mv
