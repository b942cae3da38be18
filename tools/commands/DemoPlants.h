// DemoPlants: two small plants built from the growth nodes' own defaults, for `morvo demo`.
// Every placement is shown in the mesh: a node of a branch by a copy of a smaller branch (a
// twig), the end of a branch by a small diamond marker, an element of a phyllotaxis by a small
// cone. Children are evaluated with the growth, thickness and density that their placement
// carries, and merged into one mesh under the placement's matrix. Stems and twigs take material
// index kDemoBark, markers and cones kDemoLeaf.
#pragma once

#include "geometry/MeshData.h"

constexpr int kDemoBark = 0;
constexpr int kDemoLeaf = 1;

// The placements that a demo plant showed, by kind.
struct DemoCounts {
  int nodes = 0;     // child copies at branch nodes
  int ends = 0;      // markers at branch ends
  int elements = 0;  // copies at phyllotaxis elements
};

// A stem of the Branch defaults along a gently bent three-point path, with twigs at its nodes.
DemoCounts buildDemoBranch(mv::MeshData& mesh);
// A dome of the Phyllotaxis defaults (50 elements), each element a small cone.
DemoCounts buildDemoPhyllotaxis(mv::MeshData& mesh);
