// SceneRendering: evaluates a scene graph node into a MeshData through the polygon stream, with
// selections kept, as the tests of the classic graph and of the scene loader need it.
#pragma once

#include "classic/Node.h"
#include "classic/SelectionMesh.h"
#include "core/EHierarchyHelp.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"

inline void renderNode(mv::Node& root, mv::MeshData& mesh, mv::EHierarchyHelp& help) {
  mv::SelectionMesh selecting(mesh);
  {
    mv::OPolygonStream stream(&selecting, true);
    selecting.watch(&stream);
    root.evaluate(help, stream);
    stream.flush();
  }
  selecting.watch(nullptr);
  selecting.finish();
}

inline mv::MeshData renderNode(mv::Node& root) {
  mv::MeshData mesh;
  mv::EHierarchyHelp help;
  renderNode(root, mesh, help);
  return mesh;
}
