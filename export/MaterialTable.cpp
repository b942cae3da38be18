#include "export/MaterialTable.h"

#include <string>
#include <utility>

namespace mv {

MaterialTable::MaterialTable(std::vector<ExportMaterial> materials)
    : materials_(std::move(materials)) {}

ExportMaterial MaterialTable::lookup(int materialIndex) const {
  if (materialIndex >= 0 && static_cast<size_t>(materialIndex) < materials_.size()) {
    ExportMaterial material = materials_[static_cast<size_t>(materialIndex)];
    if (material.name.empty()) material.name = "material" + std::to_string(materialIndex);
    return material;
  }
  ExportMaterial fallback;
  fallback.name = materialIndex < 0 ? "default" : "material" + std::to_string(materialIndex);
  return fallback;
}

std::set<int> MaterialTable::usedIndices(const IMesh& mesh) {
  std::set<int> used;
  MeshPolygon polygon;
  for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
    mesh.getPolygon(i, polygon);
    used.insert(polygon.material);
  }
  return used;
}

}  // namespace mv
