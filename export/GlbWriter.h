// GlbWriter: writes a MeshData as binary glTF 2.0 (.glb), one file with geometry and materials.
//
//   - one mesh with one triangle primitive per material index, ascending; quads are split along
//     their a-c diagonal;
//   - positions and normals in file axes (y up, see FileAxes), texture coordinates as stored
//     (v counts downward, as glTF does);
//   - normals per face corner with a crease angle: a corner takes the area-weighted mean of the
//     polygons around its point that turn by less than the angle from its own (CornerNormals),
//     so tubes shade smoothly and caps keep their edge; corners equal in point, normal and
//     texture coordinate share a vertex;
//   - indices are 16-bit while a primitive has at most 65 535 vertices, 32-bit beyond;
//   - line strips (hair, grass) become one primitive of mode LINES after the triangles, with
//     positions only and the material of their index;
//   - materials are double-sided (a leaf is one sheet), with the colour as base colour, no metal,
//     and the texture file, if any, as an image referenced by its URI, never embedded.
// The file is written under a temporary name and renamed at the end.
#pragma once

#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "export/LineStrips.h"
#include "export/MaterialTable.h"
#include "geometry/MeshData.h"

namespace mv {

class GlbWriter {
 public:
  static constexpr double kDefaultCreaseAngle = 1.0471975511965976;  // 60 degrees

  explicit GlbWriter(std::vector<ExportMaterial> materials = {},
                     double creaseAngle = kDefaultCreaseAngle);

  // False with a message through messageSink when the mesh is not exportable or the file cannot
  // be written.
  bool write(const MeshData& mesh, const std::string& path) const;
  // The mesh and, in the same file, the line strips drawn in material lineMaterial.
  bool write(const MeshData& mesh, const LineStrips& lines, int lineMaterial,
             const std::string& path) const;

 private:
  MaterialTable materials_;
  double creaseAngle_;
};

}  // namespace mv
