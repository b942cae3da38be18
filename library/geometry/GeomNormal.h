// GeomNormal: the second three-double value form of the geometry stream. Accepted for
// completeness of the protocol; no consumer reads what it delivers.
#pragma once

namespace mv {

struct GeomNormal {
  double x = 0.0, y = 0.0, z = 0.0;
};

}  // namespace mv
