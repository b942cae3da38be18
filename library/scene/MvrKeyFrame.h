// MvrKeyFrame: one key frame of a scene file: its components by name.
#pragma once

#include <map>
#include <string>

#include "scene/MvrComponent.h"

namespace mv {

struct MvrKeyFrame {
  std::string name = "Key 1";
  double time = 0.0;
  std::string timeText = "0";
  std::map<std::string, MvrComponent> components;
};

}  // namespace mv
