// ExportMaterial: what a mesh writer says about one material index: a name, a diffuse colour
// (RGB, 0 to 1) and optionally an image file that textures it.
#pragma once

#include <string>

namespace mv {

struct ExportMaterial {
  std::string name;
  double red = 0.8, green = 0.8, blue = 0.8;
  std::string textureFile;  // empty: no texture; written as a reference, never embedded
};

}  // namespace mv
