// DrawColor: a colour as a drawing asks for it: a number of the host's palette, or red, green and
// blue in 0 to 1 (palette number kRgb).
#pragma once

#include <cstdint>

struct DrawColor {
  static constexpr int32_t kRgb = -1;

  int32_t palette = kRgb;
  double r = 0.0, g = 0.0, b = 0.0;

  static DrawColor ofPalette(int32_t number) { return {number, 0.0, 0.0, 0.0}; }
  static DrawColor ofRgb(double r, double g, double b) { return {kRgb, r, g, b}; }

  bool operator==(const DrawColor& other) const {
    return palette == other.palette && r == other.r && g == other.g && b == other.b;
  }
  bool operator!=(const DrawColor& other) const { return !(*this == other); }
};

// Numbers of the host's palette that drawing areas use, by their role.
enum PaletteColor : int32_t {
  PaletteText = 998,
  PaletteTransparent = 999,
  PaletteBackground = 1000,
  PaletteZeroLine = 1007,
  PaletteMixedBackground = 1017,
  PaletteEdgeLight = 1102,
  PaletteEdgeDark = 1103,
  PaletteDisabledText = 1159,
};
