// MvrComponent: one scene object of a key frame, as read from a "Struct" block. One flat record
// for every object type: the struct fields, the placement, the primitive and the type block.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "scene/MvrPrimitive.h"
#include "scene/MvrRange.h"
#include "scene/MvrTransform.h"
#include "scene/MvrTriple.h"
#include "scene/MvrTypeData.h"

namespace mv {

struct MvrComponent {
  std::string name;            // key in the key frame
  std::string photoDir = "Y";  // axis of the phototropic response: "X", "Y" or "Z"
  std::string photoMode = "Vector";
  MvrTriple photo{0, -1, 1};             // strength of that response
  MvrRange existence{0, 0, "id", 0, 1};  // start and end are the life span
  bool hide = false;
  bool reference = false;

  std::set<std::string> children;  // components linked below this one
  MvrTransform transform;
  MvrPrimitive primitive;
  // Bit i of mask k: instance 16k+i of this object below its parent is shown.
  std::vector<std::uint16_t> switchMasks;
  std::string type = "Simple";  // name of the type block
  MvrTypeData typeData;
};

}  // namespace mv
