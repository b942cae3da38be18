// GeomPoint4: a point with a fourth component, one of the value forms of the geometry stream.
#pragma once

namespace mv {

struct GeomPoint4 {
  double x = 0.0, y = 0.0, z = 0.0, w = 1.0;
};

}  // namespace mv
