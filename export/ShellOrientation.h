// ShellOrientation: which way each polygon of a mesh is to be written so that viewers that cull
// back faces show it right. Polygons that touch (share a position in single precision, as files
// store it, whatever their point indices) form a shell. A shell whose every edge joins exactly two
// polygons is closed: when its signed volume is negative it is inside-out and its polygons are to
// be written with their corners reversed. Any other shell is an open sheet, to be seen from both
// sides.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/MeshData.h"

namespace mv {

class ShellOrientation {
 public:
  explicit ShellOrientation(const MeshData& mesh);

  bool reversed(uint32_t polygon) const { return (flags_[polygon] & kReversed) != 0; }
  bool inOpenSheet(uint32_t polygon) const { return (flags_[polygon] & kOpen) != 0; }

 private:
  static constexpr uint8_t kReversed = 1, kOpen = 2;
  std::vector<uint8_t> flags_;
};

}  // namespace mv
