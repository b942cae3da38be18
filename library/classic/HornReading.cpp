#include "classic/detail/HornReading.h"

#include "classic/detail/ClassicUnit.h"
#include "core/ParameterSet.h"

namespace mv {

HornReading::HornReading(ParameterSet& p)
    : segments(p.getDouble(IdHornSegments)),
      moveScale(p.getDouble(IdHornMoveScale)),
      length(p.getDouble(IdHornLength)),
      unit(usableUnit(p.getDouble(IdUnit))),
      photoStrength(p.getDouble(IdPhotoStrength)),
      photoAxis(p.getInt(IdPhotoAxis)),
      photoMode(p.getInt(IdPhotoMode)),
      top(p.getBool(IdHornTop)),
      world(p.getMatrix(IdWorldMatrix)),
      local(p.getMatrix(IdLocalMatrix)),
      displace(p.getCurve(IdDisplace)),
      shape(p.getCurve(IdHornShape)),
      rotX(p.getCurve(IdHornRotX)),
      rotY(p.getCurve(IdHornRotY)),
      rotZ(p.getCurve(IdHornRotZ)),
      trX(p.getCurve(IdHornTrX)),
      trY(p.getCurve(IdHornTrY)),
      dense(p.getCurve(IdHornDense)),
      scale(p.getCurve(IdHornScale)),
      screw(p.getCurve(IdHornScrew)),
      flap(p.getCurve(IdHornFlap)) {}

bool HornReading::complete() const {
  for (const CurveParam* curve :
       {displace, shape, rotX, rotY, rotZ, trX, trY, dense, scale, screw, flap}) {
    if (!curve) return false;
  }
  return true;
}

}  // namespace mv
