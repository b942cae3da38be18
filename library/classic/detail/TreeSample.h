// TreeSample: one sample of a classic trunk: its parameter and whether a branch knot sits there.
#pragma once

namespace mv {

struct TreeSample {
  double u = 0.0;
  bool knot = false;
};

}  // namespace mv
