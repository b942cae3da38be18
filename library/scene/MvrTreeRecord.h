// MvrTreeRecord: the arguments of createClassicTree, converted from a component of a scene file.
#pragma once

#include <string>

#include "curves/CurveParam.h"
#include "scene/MvrHornRecord.h"

namespace mv {

struct MvrTreeRecord {
  std::string primitive;  // created name of the primitive, may be empty
  double unit = 1.0;
  double segments = 20.0;
  double length = 1.0;
  double iniScale = 1.0;
  bool top = true;
  double branchNum = 10.0;
  CurveParam shape;
  CurveParam deviate;
  double kruschtlKnots = 2.0;
  CurveParam kruschtl;
  CurveParam branchiness;
  CurveParam screw;
  CurveParam angle;
  CurveParam dense;
  CurveParam scale;
  CurveParam geomScale;
  int pairs = 0;
  CurveParam phototropism;
  CurveParam gravitropism;
  int version = 6;
  MvrPath path;  // empty unless the component follows its knots
  CurveParam displace;
  bool separator = false;
};

}  // namespace mv
