#include "SelectionMesh.h"

namespace mv {

bool SelectionMesh::allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                             uint32_t& firstPolygon) {
  return target_.allocate(pointCount, polygonCount, firstPoint, firstPolygon);
}

bool SelectionMesh::finish() {
  for (const auto& [name, polygons] : collected_) {
    target_.selections[name].insert(polygons.begin(), polygons.end());
  }
  collected_.clear();
  return target_.finish();
}

bool SelectionMesh::setPoint(uint32_t index, const Vector3& point) {
  return target_.setPoint(index, point);
}

// A selection id that the stream never issued names no selection.
bool SelectionMesh::setPolygon(uint32_t index, const MeshPolygon& polygon) {
  if (!target_.setPolygon(index, polygon)) return false;
  if (!stream_) return true;
  const int id = stream_->topAttributes().selectionId;
  const auto& names = stream_->materialNames();
  if (id >= 0 && static_cast<size_t>(id) < names.size()) collected_[names[id]].insert(index);
  return true;
}

bool SelectionMesh::setTexturePolygon(uint32_t index, const TexturePolygon& texture) {
  return target_.setTexturePolygon(index, texture);
}

bool SelectionMesh::setSelection(const std::string& name, const std::set<uint32_t>& polygons) {
  collected_[name].insert(polygons.begin(), polygons.end());
  return true;
}

}  // namespace mv
