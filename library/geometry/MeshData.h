// MeshData: the in-memory mesh of the library. Reads past the end give neutral values rather
// than faults; successive allocate calls append.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "geometry/EditableMesh.h"

namespace mv {

class MeshData : public EditableMesh {
 public:
  std::vector<Vector3> points;
  std::vector<MeshPolygon> polygons;
  std::vector<TexturePolygon> texturePolygons;
  std::map<std::string, std::set<uint32_t>> selections;

  uint32_t getPointCount() const override;
  uint32_t getPolygonCount() const override;
  void getPoint(uint32_t index, Vector3& out) const override;
  void getPolygon(uint32_t index, MeshPolygon& out) const override;
  void getTexturePolygon(uint32_t index, TexturePolygon& out) const override;
  // Sets the point list to pointCount and both polygon lists to polygonCount; new entries take
  // their defaults, a smaller count truncates.
  virtual bool resize(uint32_t pointCount, uint32_t polygonCount);

  bool allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                uint32_t& firstPolygon) override;
  bool finish() override;
  bool setPoint(uint32_t index, const Vector3& point) override;
  bool setPolygon(uint32_t index, const MeshPolygon& polygon) override;
  bool setTexturePolygon(uint32_t index, const TexturePolygon& texture) override;
  // Replaces the whole set stored under name.
  bool setSelection(const std::string& name, const std::set<uint32_t>& polygonSet) override;
};

}  // namespace mv
