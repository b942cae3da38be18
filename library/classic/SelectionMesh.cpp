#include "classic/SelectionMesh.h"

namespace mv {

bool SelectionMesh::allocate(uint32_t pointCount, uint32_t polygonCount, uint32_t& firstPoint,
                             uint32_t& firstPolygon) {
  return target_.allocate(pointCount, polygonCount, firstPoint, firstPolygon);
}

bool SelectionMesh::finish() {
  for (size_t id = 0; id < byId_.size(); ++id) {
    if (byId_[id].empty()) continue;
    std::set<uint32_t>& selection = target_.selections[names_[id]];
    for (uint32_t polygon : byId_[id]) selection.insert(selection.end(), polygon);
  }
  for (const auto& [name, polygons] : named_) {
    target_.selections[name].insert(polygons.begin(), polygons.end());
  }
  byId_.clear();
  named_.clear();
  return target_.finish();
}

bool SelectionMesh::setPoint(uint32_t index, const Vector3& point) {
  return target_.setPoint(index, point);
}

// A selection id that the stream never issued names no selection. Polygons arrive by id, in
// rising order within each, so that finish can fill each selection from its end.
bool SelectionMesh::setPolygon(uint32_t index, const MeshPolygon& polygon) {
  if (!target_.setPolygon(index, polygon)) return false;
  if (!stream_) return true;
  const int id = stream_->topAttributes().selectionId;
  if (id < 0) return true;
  if (static_cast<size_t>(id) >= names_.size()) names_ = stream_->materialNames();
  if (static_cast<size_t>(id) >= names_.size()) return true;
  if (byId_.size() < names_.size()) byId_.resize(names_.size());
  byId_[id].push_back(index);
  return true;
}

bool SelectionMesh::setTexturePolygon(uint32_t index, const TexturePolygon& texture) {
  return target_.setTexturePolygon(index, texture);
}

bool SelectionMesh::setSelection(const std::string& name, const std::set<uint32_t>& polygons) {
  named_[name].insert(polygons.begin(), polygons.end());
  return true;
}

}  // namespace mv
