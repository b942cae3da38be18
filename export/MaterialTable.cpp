#include "export/MaterialTable.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace mv {

namespace {

// Scene files may hold any number as a colour; files want 0 to 1. Infinities clamp, NaN is 0.
double unitInterval(double value) {
  if (std::isnan(value)) return 0.0;
  return std::min(1.0, std::max(0.0, value));
}

}  // namespace

MaterialTable::MaterialTable(std::vector<ExportMaterial> materials)
    : materials_(std::move(materials)) {}

ExportMaterial MaterialTable::lookup(int materialIndex) const {
  ExportMaterial material;
  material.name = materialIndex < 0 ? "default" : "material" + std::to_string(materialIndex);
  if (materialIndex >= 0 && static_cast<size_t>(materialIndex) < materials_.size()) {
    const ExportMaterial& given = materials_[static_cast<size_t>(materialIndex)];
    if (!given.name.empty()) material.name = given.name;
    material.red = unitInterval(given.red);
    material.green = unitInterval(given.green);
    material.blue = unitInterval(given.blue);
    material.textureFile = given.textureFile;
  }
  return material;
}

std::set<int> MaterialTable::usedIndices(const IMesh& mesh) {
  std::set<int> used;
  MeshPolygon polygon;
  int last = 0;
  for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
    mesh.getPolygon(i, polygon);
    if (i > 0 && polygon.material == last) continue;  // runs of one material are the rule
    used.insert(last = polygon.material);
  }
  return used;
}

}  // namespace mv
