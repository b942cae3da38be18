// ModifierDemos: small scenes that show what Hydra, Tropism and the curvature spline do, for
// `morvo demo`. Paths are shown as tapering tubes swept by a Branch (material kDemoBark), the
// elements of a hydra as short cones (kDemoLeaf). Each builder fills mesh and returns a line
// that says what it shows.
#pragma once

#include <string>

#include "geometry/MeshData.h"

// A ring of 7.5 elements of the Hydra defaults with a tilt: the half element shrinks; and a star
// of 12 elements inside it, sweep and tilt as polar angles.
std::string buildDemoHydra(mv::MeshData& mesh);
// A fan of seven upright stems bent toward +x by Tropism strengths from -0.9 to 0.9; the middle
// one has strength 0 and stays straight.
std::string buildDemoTropism(mv::MeshData& mesh);
// Three curvature splines: a constant turn about x (an arc), turn and roll (a helix), and a turn
// that grows along the walk (a curl).
std::string buildDemoCurvature(mv::MeshData& mesh);
