// HornReading: the parameters of one evaluation of a classic horn or leaf, read in the order
// that the nodes need: the numbers first, then the curves, of which a missing one reads null.
#pragma once

#include "classic/ClassicHorn.h"
#include "core/Matrix4.h"

namespace mv {

class CurveParam;
class ParameterSet;

struct HornReading {
  explicit HornReading(ParameterSet& params);

  // True when every curve that both horn and leaf need is there.
  bool complete() const;
  ClassicHorn::ChainCurves chain() const { return {rotX, rotY, rotZ, trX, trY, dense}; }

  double segments, moveScale, length, unit, photoStrength;
  int photoAxis, photoMode;
  bool top;
  Matrix4 world, local;
  CurveParam *displace, *shape, *rotX, *rotY, *rotZ, *trX, *trY, *dense, *scale, *screw, *flap;
};

}  // namespace mv
