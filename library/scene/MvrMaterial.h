// MvrMaterial: a material of a scene load, made from the colour and texture fields of an
// object's primitive and handed to the loader's addMaterial.
#pragma once

#include <string>

#include "core/Vector3.h"
#include "scene/MvrColor.h"

namespace mv {

struct MvrMaterial {
  std::string name = "Default";
  std::string color;
  std::string texture;
  std::string textureFile;  // empty: no image
  MvrColor ambient{0.1f, 0.1f, 0.1f};
  MvrColor diffuse{0.6f, 0.6f, 0.6f};
  MvrColor specular;
  MvrColor emission;
  double alpha = 1.0;
  Vector3 textureOffset;
  Vector3 textureScale{1, 1, 1};
};

}  // namespace mv
