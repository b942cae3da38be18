// OMeshDummy: a mesh that accepts everything and keeps nothing, for running a node's generation
// step when only its placements are wanted.
#pragma once

#include "geometry/OMesh.h"

namespace mv {

class OMeshDummy : public OMesh {
 public:
  bool allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                uint32_t& firstPolygon) override;
  bool finish() override;
  bool setPoint(uint32_t index, const Vector3& point) override;
  bool setPolygon(uint32_t index, const MeshPolygon& polygon) override;
  bool setTexturePolygon(uint32_t index, const TexturePolygon& texture) override;
  bool setSelection(const std::string& name, const std::set<uint32_t>& polygons) override;
};

}  // namespace mv
