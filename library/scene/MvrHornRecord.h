// MvrHornRecord: the arguments of createClassicHorn and createClassicLeaf, converted from a
// component of a scene file. Fields that only one of the two takes say so.
#pragma once

#include <map>
#include <string>

#include "core/Vector3.h"
#include "curves/CurveParam.h"

namespace mv {

// A path: positions along the object (0 to 1, by arc length) to points in space.
using MvrPath = std::map<double, Vector3>;

struct MvrHornRecord {
  std::string primitive;     // created name of the primitive, may be empty
  bool hasChildren = false;  // Leaf only: the component has children
  double unit = 1.0;
  double segments = 20.0;
  double moveScale = 20.0;  // Horn only
  double length = 1.0;
  bool top = true;  // Horn only
  bool smooth = false;
  MvrPath path;  // empty unless the component follows its knots
  CurveParam shape;
  CurveParam rotX, rotY, rotZ;
  CurveParam trX, trY;
  CurveParam dense;
  CurveParam screw;
  CurveParam flap;
  CurveParam scale;
  CurveParam steps;         // Horn only
  CurveParam phototropism;  // Leaf only
  CurveParam gravitropism;  // Leaf only
  CurveParam displace;
  bool separator = false;  // Horn only
};

}  // namespace mv
