// SceneRender: a scene file loaded into the classic scene graph and evaluated to one mesh, with
// a selection per object name and the file's materials by index, as morvo render writes it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "geometry/MeshData.h"
#include "scene/MvrMaterial.h"
#include "scene/MvrSkip.h"

namespace mv {
class PhaseTimes;
}

struct RenderedScene {
  mv::MeshData mesh;
  std::map<int, mv::MvrMaterial> materials;  // the first material of each index
  bool loaded = false;                       // the load ran to its end
  int topObjects = 0;                        // objects that reached the top of the graph
  std::vector<mv::MvrSkip> skipped;          // what the load passed over
};

// Loads path with the import scale unit and evaluates it into out. Messages go through
// messageSink; printTree writes the loaded graph to standard output first. times, when given,
// receives the processor time of the load and of the evaluation.
void renderScene(const std::string& path, double unit, bool printTree, RenderedScene& out,
                 mv::PhaseTimes* times = nullptr);
