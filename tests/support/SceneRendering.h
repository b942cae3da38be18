// SceneRendering: a node rendered to a fresh mesh by the library's render call, for tests that
// only want the mesh.
#pragma once

#include "classic/MeshRender.h"
#include "classic/Node.h"
#include "geometry/MeshData.h"

inline mv::MeshData renderNode(mv::Node& root) {
  mv::MeshData mesh;
  mv::renderMesh(root, mesh);
  return mesh;
}
