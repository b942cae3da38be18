// TreeFrame: one frame of a classic trunk or horn chain: its parameter along the chain and the
// matrix that carries a profile point to its place there. Chains hold them in order of rising x.
#pragma once

#include "core/Matrix4.h"

namespace mv {

struct TreeFrame {
  double x = 0.0;
  Matrix4 matrix;
};

}  // namespace mv
