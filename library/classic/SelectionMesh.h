// SelectionMesh: the mesh that a scene graph is evaluated into when the result should keep its
// selections. It stands in front of a MeshData and files every polygon written through it under
// the selection in force in the watched stream (the name of the node that wrote it), then adds
// those selections to the target at finish.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "geometry/MeshData.h"
#include "geometry/OBaseGeomStream.h"
#include "geometry/OMesh.h"

namespace mv {

class SelectionMesh : public OMesh {
 public:
  explicit SelectionMesh(MeshData& target) : target_(target) {}

  // The stream whose selection attribute and issued names decide where polygons go; not owned.
  void watch(const OBaseGeomStream* stream) { stream_ = stream; }

  bool allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                uint32_t& firstPolygon) override;
  // Adds the collected selections to the target, then finishes it.
  bool finish() override;
  bool setPoint(uint32_t index, const Vector3& point) override;
  bool setPolygon(uint32_t index, const MeshPolygon& polygon) override;
  bool setTexturePolygon(uint32_t index, const TexturePolygon& texture) override;
  bool setSelection(const std::string& name, const std::set<uint32_t>& polygons) override;

 private:
  MeshData& target_;
  const OBaseGeomStream* stream_ = nullptr;
  std::vector<std::vector<uint32_t>> byId_;          // polygons by the stream's selection id
  std::vector<std::string> names_;                   // the names the stream issued, as far as used
  std::map<std::string, std::set<uint32_t>> named_;  // selections set by name
};

}  // namespace mv
