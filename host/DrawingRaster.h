// DrawingRaster: turns a recorded drawing into pixels and writes them as a PNG. Palette colours
// take a light grey theme; lines are drawn with Bresenham's steps, rectangles filled, borders as
// an etched frame (dark top and left, light bottom and right), texts in the built-in font.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/DrawOperation.h"

class DrawingRaster {
 public:
  // An image of width by height pixels (each at least 1, at most kMaxSize), filled with the
  // background colour of the palette.
  DrawingRaster(int32_t width, int32_t height);

  static constexpr int32_t kMaxSize = 8192;

  void draw(const std::vector<DrawOperation>& drawing);
  // RGB of a pixel, 0 to 255 each; black outside the image.
  uint32_t pixel(int32_t x, int32_t y) const;
  // False when the file cannot be written.
  bool writePng(const std::string& path) const;

  // The colour a palette number or a triple stands for, as 0xRRGGBB.
  static uint32_t rgbOf(const DrawColor& color);

 private:
  void plot(int32_t x, int32_t y, uint32_t rgb);
  void fill(int32_t x1, int32_t y1, int32_t x2, int32_t y2, uint32_t rgb);
  void line(const DrawOperation& operation);
  void border(const DrawOperation& operation);
  void text(const DrawOperation& operation);

  int32_t width_, height_;
  std::vector<uint8_t> pixels_;
};
