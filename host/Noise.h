// Noise: the host's smooth noise of a point, gradient noise in three dimensions with a fixed
// table, scaled to 0 to 1: 0.5 at every whole-numbered point, continuous, the same for the same
// point in every run.
#pragma once

#include "host/Vector.h"

Float Noise(const Vector& p);
