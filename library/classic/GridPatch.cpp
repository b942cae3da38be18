#include "classic/GridPatch.h"

#include <string>

#include "core/MessageSink.h"

namespace mv {

bool GridPatch::write(OGeomStream& stream, int cellsU, int cellsV, const PointFunction& point) {
  if (cellsU < 1 || cellsV < 1) return false;
  if (cellsU > kMaxCells || cellsV > kMaxCells ||
      static_cast<long>(cellsU + 1) * (cellsV + 1) > kMaxPoints) {
    messageSink.warning("Primitive with " + std::to_string(cellsU) + " by " +
                        std::to_string(cellsV) + " cells skipped: too fine");
    return false;
  }
  stream << CmdPatch;
  writeHeaderSide(stream, cellsU);
  writeHeaderSide(stream, cellsV);
  stream.param(ParamPoints) << '[';
  for (int v = 0; v <= cellsV; ++v) {
    for (int u = 0; u <= cellsU; ++u) stream << point(u, v);
  }
  stream << ']';
  return true;
}

// Count, order 2, the clamped knot vector 0, 0 .. cells, cells, and the range 0 to cells.
void GridPatch::writeHeaderSide(OGeomStream& stream, int cells) {
  stream << (cells + 1) << 2 << '[' << 0;
  for (int knot = 0; knot <= cells; ++knot) stream << knot;
  stream << cells << ']' << 0 << cells;
}

}  // namespace mv
