// DocumentMesh: a document's current state as one mesh for the writers: every polygon object
// of every object's current state (command 245) in world coordinates, with the host's y and z
// swapped into the library's axes, its UVs, its polygon selections (merged by name), and a
// material index per polygon from the texture tags. Texture tags act as a user expects: those
// of the ancestors first, then the object's own, each later one covering what it applies to,
// the whole object or the selection named by its string 1006. Objects whose render mode is
// off are left out with everything below them, unless a child turns itself on.
#pragma once

#include <vector>

#include "export/ExportMaterial.h"
#include "geometry/MeshData.h"

class BaseDocument;
class BaseMaterial;
class BaseObject;
class BaseTag;
class PolygonObject;
struct Matrix;

class DocumentMesh {
 public:
  // Evaluates the document and collects it; false with a console line when it holds no
  // polygon.
  bool collect(BaseDocument* doc);
  const mv::MeshData& mesh() const { return mesh_; }
  const std::vector<mv::ExportMaterial>& materials() const { return materials_; }

 private:
  void collectTree(BaseObject* op, const Matrix& parent, std::vector<BaseTag*> textures,
                   int renderMode);
  void appendPolygons(const PolygonObject& poly, const Matrix& mg,
                      const std::vector<BaseTag*>& textures);
  std::vector<int32_t> materialsOf(const PolygonObject& poly,
                                   const std::vector<BaseTag*>& textures);
  int32_t materialIndex(BaseMaterial* material);

  mv::MeshData mesh_;
  std::vector<mv::ExportMaterial> materials_;
  std::vector<const BaseMaterial*> materialOrder_;
};
