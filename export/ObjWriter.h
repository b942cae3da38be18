// ObjWriter: writes a MeshData as Wavefront OBJ with its material library (MTL) beside it.
//
//   - points become "v" lines in file axes (y up, see FileAxes), in the mesh's order;
//   - each distinct texture coordinate becomes one "vt" line, v flipped (1 - v) because OBJ
//     counts v upward from the bottom of the image while the mesh counts it downward, as glTF;
//   - faces are grouped by material index, ascending, each run under "g" and "usemtl"; the group
//     line names the material and then every polygon selection the faces belong to, so
//     "g bark C1" holds the faces of material bark that are in selection C1;
//   - quads are written as quads, triangles (third corner repeated) as triangles;
//   - line strips (hair, grass) follow the faces: their points as "v" lines, then one "l" line
//     per strip under the group "lines" and the strips' material.
// Names are written with blanks replaced by '_'. Both files are written under temporary names and
// renamed at the end, the MTL first.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "export/LineStrips.h"
#include "export/MaterialTable.h"
#include "geometry/MeshData.h"

namespace mv {

class ObjWriter {
 public:
  explicit ObjWriter(std::vector<ExportMaterial> materials = {});

  // Writes path and, beside it, the same name with the suffix .mtl. False with a message
  // through messageSink when the mesh is not exportable or a file cannot be written.
  bool write(const MeshData& mesh, const std::string& path) const;
  // The mesh and, in the same file, the line strips drawn in material lineMaterial.
  bool write(const MeshData& mesh, const LineStrips& lines, int lineMaterial,
             const std::string& path) const;

  static std::string materialLibraryPath(const std::string& objPath);

 private:
  void writeMaterialLibrary(std::ostream& out, const std::set<int>& used) const;
  void writeObj(std::ostream& out, const MeshData& mesh, const std::string& libraryName) const;
  void writeLines(std::ostream& out, const LineStrips& lines, int lineMaterial,
                  size_t firstIndex) const;

  MaterialTable materials_;
};

}  // namespace mv
