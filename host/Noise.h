// Noise: the host's smooth 3D noise, gradient noise on the integer lattice. Its value lies in
// [0, 1]; it is 0.5 at every lattice point and changes smoothly between them, the same on every
// run (the lattice's gradients come from a fixed seed).
#pragma once

#include "host/Vector.h"

Float Noise(const Vector& p);
