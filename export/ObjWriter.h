// ObjWriter: writes a MeshData as Wavefront OBJ with its material library (MTL) beside it.
//
//   - points become "v" lines in file axes (y up, see FileAxes), in the mesh's order, each number
//     in the shortest text that reads back to the same double;
//   - each distinct texture coordinate becomes one "vt" line, v flipped (1 - v) because OBJ
//     counts v upward from the bottom of the image while the mesh counts it downward, as glTF;
//   - each distinct normal of a point's corners becomes one "vn" line (single precision),
//     computed with a crease angle as for glTF (CornerNormals); a face whose corners share one
//     normal is flat ("s off"), any other smooth ("s 1"); "vt" and "vn" lines come just before
//     the first face that uses them;
//   - faces are grouped by material index, ascending, in the mesh's order within a material, each
//     run under "g" and "usemtl"; the group line names the material and then every polygon
//     selection the faces belong to, so "g bark C1" holds the faces of material bark that are in
//     selection C1;
//   - quads are written as quads, triangles (third corner repeated) as triangles; closed shells
//     of negative volume with their corners reversed, so that every closed shell faces outward
//     (ShellOrientation);
//   - "Kd" is the colour as given, within 0 to 1; "map_Kd" a relative reference inside the
//     output's folder (TextureReference), with a warning when the file is not beside the output.
// Names are written with blanks replaced by '_'. Both files are written under temporary names and
// committed as a pair: both appear, or neither changes.
#pragma once

#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "export/MaterialTable.h"
#include "export/WriteOptions.h"
#include "geometry/MeshData.h"

namespace mv {

class AtomicFile;
class ShellOrientation;

class ObjWriter {
 public:
  static constexpr double kDefaultCreaseAngle = 1.0471975511965976;  // 60 degrees

  explicit ObjWriter(std::vector<ExportMaterial> materials = {},
                     double creaseAngle = kDefaultCreaseAngle);

  void setOptions(const WriteOptions& options) { options_ = options; }

  // Writes path and, beside it, the same name with the suffix .mtl. False with a message
  // through messageSink when the mesh is not exportable or a file cannot be written.
  bool write(const MeshData& mesh, const std::string& path) const;

  static std::string materialLibraryPath(const std::string& objPath);

 private:
  void writeMaterialLibrary(AtomicFile& out, const MeshData& mesh,
                            const std::string& objPath) const;
  void writeObj(AtomicFile& out, const MeshData& mesh, const std::string& libraryName,
                const ShellOrientation& shells) const;

  MaterialTable materials_;
  double creaseAngle_;
  WriteOptions options_;
};

}  // namespace mv
