// GlbWriter: writes a MeshData as binary glTF 2.0 (.glb), one file with geometry and materials.
//
//   - one mesh with one triangle primitive per material index, ascending; quads are split along
//     their a-c diagonal;
//   - positions and normals in file axes (y up, see FileAxes), texture coordinates as stored
//     (v counts downward, as glTF does);
//   - closed shells face outward: one with negative volume is written with its corners reversed
//     (ShellOrientation); a material is double-sided when any of its polygons lies in an open
//     sheet (a leaf is one sheet), single-sided otherwise;
//   - normals per face corner with a crease angle: a corner takes the area-weighted mean of the
//     polygons around its point that turn by less than the angle from its own (CornerNormals),
//     so tubes shade smoothly and caps keep their edge; corners equal in point, normal and
//     texture coordinate share a vertex, numbered in the order they first appear;
//   - indices are 16-bit while a primitive's polygons have at most 65 535 corners (so at most as
//     many vertices), 32-bit beyond;
//   - materials: the colour, read as sRGB, becomes the linear base colour; no metal; names become
//     valid UTF-8 (Utf8Text); a texture file is referenced by a percent-encoded relative URI
//     (TextureReference) or, with embedTextures, stored in the file (read beside the output
//     or at the same reference from the current folder, never elsewhere). A texture that is not
//     found beside the output, or cannot be stored, gets a warning.
// The file is written as it is made, one primitive at a time (its indices while its polygons are
// welded, then its vertices), under a temporary name that is renamed at the end (AtomicFile).
#pragma once

#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "export/MaterialTable.h"
#include "export/WriteOptions.h"
#include "geometry/MeshData.h"

namespace mv {

class GlbWriter {
 public:
  static constexpr double kDefaultCreaseAngle = 1.0471975511965976;  // 60 degrees

  explicit GlbWriter(std::vector<ExportMaterial> materials = {},
                     double creaseAngle = kDefaultCreaseAngle);

  void setOptions(const WriteOptions& options) { options_ = options; }

  // False with a message through messageSink when the mesh is not exportable or the file cannot
  // be written; an earlier file at path is then left as it was.
  bool write(const MeshData& mesh, const std::string& path) const;

  // sRGB to linear light, for a value in 0 to 1.
  static double linearFromSrgb(double value);

 private:
  MaterialTable materials_;
  double creaseAngle_;
  WriteOptions options_;
};

}  // namespace mv
