// renderMesh: the one way from a scene graph (or any classic node) to a mesh. It evaluates the
// node into a MeshData through the polygon stream, keeps one selection per writing node's name,
// and guards the walk with a budget: objects shared at many levels multiply, so a hostile file
// could otherwise ask for billions of instances.
#pragma once

#include <cstdint>

#include "classic/Node.h"
#include "core/ProgressHandler.h"
#include "geometry/MeshData.h"

namespace mv {

struct MeshRenderOptions {
  // The walk stops once it has visited more nodes or written more polygons than these; 0 means
  // no limit. The defaults are far above any real plant.
  long maxVisits = 500000;
  uint32_t maxPolygons = 10000000;
  // Told the walk's progress and asked whether to stop; null for the process-wide progressSink.
  ProgressHandler* progress = nullptr;
};

enum class MeshRenderOutcome {
  Complete,    // the whole graph was walked
  Cancelled,   // the progress handler asked to stop; the mesh holds what was made until then
  OverBudget,  // a limit was reached (reported as an error); the mesh holds what fit
};

// Evaluates root into mesh (added to what it holds) and finishes it.
MeshRenderOutcome renderMesh(Node& root, MeshData& mesh, const MeshRenderOptions& options = {});

}  // namespace mv
