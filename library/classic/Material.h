// Material: what the scene graph keeps of a material of the scene file: its name and the
// texture placement that the host import applies to the texture coordinates.
#pragma once

#include <string>

#include "core/Vector3.h"

namespace mv {

class Material {
 public:
  virtual ~Material() = default;

  std::string name;
  Vector3 textureOffset;
  Vector3 textureScale{1, 1, 1};
};

}  // namespace mv
