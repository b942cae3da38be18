// DrawOperation: one recorded drawing call of a drawing area, with the colours in force when it
// was made. A headless host keeps these instead of pixels; DrawingRaster turns them into pixels.
#pragma once

#include <cstdint>
#include <string>

#include "host/DrawColor.h"

struct DrawOperation {
  enum Kind { Line, Rectangle, Border, Text };

  Kind kind = Line;
  // Line: from (x1, y1) to (x2, y2), both ends drawn. Rectangle and Border: the corners, both
  // inclusive. Text: the top left corner in (x1, y1).
  int32_t x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  DrawColor color;       // the pen, or the text colour
  DrawColor background;  // Text only; PaletteTransparent leaves what lies below
  int32_t border = 0;    // Border only: the style
  std::string text;      // Text only, UTF-8

  bool operator==(const DrawOperation& other) const {
    return kind == other.kind && x1 == other.x1 && y1 == other.y1 && x2 == other.x2 &&
           y2 == other.y2 && color == other.color && background == other.background &&
           border == other.border && text == other.text;
  }
};
