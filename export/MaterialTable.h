// MaterialTable: the materials handed to a writer, looked up by the material index of a polygon.
// Entry k describes material index k; an index without an entry (or -1, no material) gets a
// grey default named "material<k>" (or "default"). Colours come out within 0 to 1 and finite.
#pragma once

#include <set>
#include <vector>

#include "export/ExportMaterial.h"
#include "geometry/IMesh.h"

namespace mv {

class MaterialTable {
 public:
  explicit MaterialTable(std::vector<ExportMaterial> materials);

  ExportMaterial lookup(int materialIndex) const;
  // The material indices that the mesh's polygons use, in ascending order.
  static std::set<int> usedIndices(const IMesh& mesh);

 private:
  std::vector<ExportMaterial> materials_;
};

}  // namespace mv
