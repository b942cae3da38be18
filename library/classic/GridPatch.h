// GridPatch: a grid of points written to the geometry stream as one patch of order 2, that is,
// bilinear cells, which the polygon stream turns into one quad per cell. The surface of every
// primitive goes out this way.
#pragma once

#include <functional>

#include "core/Vector3.h"
#include "geometry/OGeomStream.h"

namespace mv {

class GridPatch {
 public:
  // The point of column u and row v, both from 0 to the cell count inclusive.
  using PointFunction = std::function<Vector3(int u, int v)>;

  // Cells per side, and points in all, beyond which a grid is refused: larger counts only come
  // from broken files.
  static constexpr int kMaxCells = 4096;
  static constexpr long kMaxPoints = 1L << 20;

  // Writes the patch header and the points, rows (v) outer and columns (u) inner. A grid with
  // fewer than one cell along a side writes nothing; one beyond the limits writes nothing and
  // says so. Both return false.
  static bool write(OGeomStream& stream, int cellsU, int cellsV, const PointFunction& point);

 private:
  static void writeHeaderSide(OGeomStream& stream, int cells);
};

}  // namespace mv
