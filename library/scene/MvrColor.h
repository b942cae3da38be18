// MvrColor: a colour of a scene file's material, single precision, each channel 0 to 1.
#pragma once

namespace mv {

struct MvrColor {
  float red = 0.0f;
  float green = 0.0f;
  float blue = 0.0f;

  MvrColor() = default;
  MvrColor(float r, float g, float b) : red(r), green(g), blue(b) {}
  bool operator==(const MvrColor& o) const {
    return red == o.red && green == o.green && blue == o.blue;
  }
};

}  // namespace mv
