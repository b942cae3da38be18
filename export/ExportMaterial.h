// ExportMaterial: what a mesh writer says about one material index: a name (bytes, as scene
// files hold them), a diffuse colour (sRGB; writers clamp it to 0 to 1) and optionally an image
// file that textures it.
#pragma once

#include <string>

namespace mv {

struct ExportMaterial {
  std::string name;
  double red = 0.8, green = 0.8, blue = 0.8;
  std::string textureFile;  // empty: no texture; referenced relative to the output (see
                            // TextureReference) or, for glTF on request, stored in the file
};

}  // namespace mv
