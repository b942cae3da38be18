#include "HornReading.h"

#include "ClassicUnit.h"
#include "ParameterSet.h"

namespace mv {

HornReading::HornReading(ParameterSet& p)
    : segments(p.getDouble(IdHornSegments)),
      moveScale(p.getDouble(IdMoveScale)),
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
      rotX(p.getCurve(IdRotX)),
      rotY(p.getCurve(IdRotY)),
      rotZ(p.getCurve(IdRotZ)),
      trX(p.getCurve(IdTrX)),
      trY(p.getCurve(IdTrY)),
      dense(p.getCurve(IdHornDense)),
      scale(p.getCurve(IdHornScale)),
      screw(p.getCurve(IdHornScrew)),
      flap(p.getCurve(IdFlap)) {}

bool HornReading::complete() const {
  for (const CurveParam* curve :
       {displace, shape, rotX, rotY, rotZ, trX, trY, dense, scale, screw, flap}) {
    if (!curve) return false;
  }
  return true;
}

}  // namespace mv
