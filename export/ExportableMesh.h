// ExportableMesh: the checks a mesh must pass before a writer turns it into a file: every corner
// names an existing point and every point and texture coordinate is finite and within single
// precision, which is what file formats store.
#pragma once

#include <string>

#include "export/LineStrips.h"
#include "geometry/MeshData.h"

namespace mv {

struct ExportableMesh {
  // True when the mesh can be written; otherwise an error naming the writer and false.
  static bool check(const MeshData& mesh, const std::string& writer);
  // The same for line strips: counts that add up to the points, finite single-precision points.
  static bool check(const LineStrips& lines, const std::string& writer);
};

}  // namespace mv
