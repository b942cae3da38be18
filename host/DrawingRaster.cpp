#include "host/DrawingRaster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <stb/stb_image_write.h>

#include "host/BuiltInFont.h"

namespace {

uint32_t channel(double value) {
  return static_cast<uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

}  // namespace

DrawingRaster::DrawingRaster(int32_t width, int32_t height)
    : width_(std::clamp(width, 1, kMaxSize)), height_(std::clamp(height, 1, kMaxSize)) {
  pixels_.resize(static_cast<size_t>(width_) * height_ * 3);
  fill(0, 0, width_ - 1, height_ - 1, rgbOf(DrawColor::ofPalette(PaletteBackground)));
}

uint32_t DrawingRaster::rgbOf(const DrawColor& color) {
  switch (color.palette) {
    case DrawColor::kRgb:
      return channel(color.r) << 16 | channel(color.g) << 8 | channel(color.b);
    case PaletteText:
      return 0x101010;
    case PaletteBackground:
      return 0xc8c8c8;
    case PaletteZeroLine:
      return 0x3070c0;
    case PaletteMixedBackground:
      return 0xa0a0a0;
    case PaletteEdgeLight:
      return 0xf0f0f0;
    case PaletteEdgeDark:
      return 0x606060;
    case PaletteDisabledText:
      return 0x808080;
    default:
      return 0xff00ff;  // an unknown number stands out
  }
}

void DrawingRaster::plot(int32_t x, int32_t y, uint32_t rgb) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  uint8_t* target = &pixels_[(static_cast<size_t>(y) * width_ + x) * 3];
  target[0] = static_cast<uint8_t>(rgb >> 16);
  target[1] = static_cast<uint8_t>(rgb >> 8);
  target[2] = static_cast<uint8_t>(rgb);
}

void DrawingRaster::fill(int32_t x1, int32_t y1, int32_t x2, int32_t y2, uint32_t rgb) {
  const int32_t left = std::max(std::min(x1, x2), 0),
                right = std::min(std::max(x1, x2), width_ - 1);
  const int32_t top = std::max(std::min(y1, y2), 0),
                bottom = std::min(std::max(y1, y2), height_ - 1);
  for (int32_t y = top; y <= bottom; ++y) {
    for (int32_t x = left; x <= right; ++x) plot(x, y, rgb);
  }
}

void DrawingRaster::draw(const std::vector<DrawOperation>& drawing) {
  for (const DrawOperation& operation : drawing) {
    switch (operation.kind) {
      case DrawOperation::Line:
        line(operation);
        break;
      case DrawOperation::Rectangle:
        fill(operation.x1, operation.y1, operation.x2, operation.y2, rgbOf(operation.color));
        break;
      case DrawOperation::Border:
        border(operation);
        break;
      case DrawOperation::Text:
        text(operation);
        break;
    }
  }
}

// Bresenham's line; a line that reaches far outside the image is cut to its box first, so a
// hostile coordinate costs no more than the image.
void DrawingRaster::line(const DrawOperation& operation) {
  int64_t x = operation.x1, y = operation.y1;
  const int64_t dx = std::llabs(int64_t{operation.x2} - x),
                dy = -std::llabs(int64_t{operation.y2} - y);
  const int64_t sx = x < operation.x2 ? 1 : -1, sy = y < operation.y2 ? 1 : -1;
  if (std::max(dx, -dy) > 4 * int64_t{kMaxSize}) return;
  const uint32_t rgb = rgbOf(operation.color);
  for (int64_t error = dx + dy;;) {
    plot(static_cast<int32_t>(x), static_cast<int32_t>(y), rgb);
    if (x == operation.x2 && y == operation.y2) break;
    const int64_t twice = 2 * error;
    if (twice >= dy) {
      error += dy;
      x += sx;
    }
    if (twice <= dx) {
      error += dx;
      y += sy;
    }
  }
}

void DrawingRaster::border(const DrawOperation& operation) {
  if (operation.border == 0) return;
  const uint32_t dark = rgbOf(operation.color), light = rgbOf(operation.background);
  fill(operation.x1, operation.y1, operation.x2, operation.y1, dark);
  fill(operation.x1, operation.y1, operation.x1, operation.y2, dark);
  fill(operation.x1 + 1, operation.y2, operation.x2, operation.y2, light);
  fill(operation.x2, operation.y1 + 1, operation.x2, operation.y2, light);
}

void DrawingRaster::text(const DrawOperation& operation) {
  if (operation.background.palette != PaletteTransparent) {
    fill(operation.x1, operation.y1, operation.x2, operation.y2, rgbOf(operation.background));
  }
  const uint32_t rgb = rgbOf(operation.color);
  for (const BuiltInFont::Box& box :
       BuiltInFont::boxes(operation.text, operation.x1, operation.y1)) {
    fill(box.x1, box.y1, box.x2, box.y2, rgb);
  }
}

uint32_t DrawingRaster::pixel(int32_t x, int32_t y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
  const uint8_t* source = &pixels_[(static_cast<size_t>(y) * width_ + x) * 3];
  return uint32_t{source[0]} << 16 | uint32_t{source[1]} << 8 | source[2];
}

bool DrawingRaster::writePng(const std::string& path) const {
  return stbi_write_png(path.c_str(), width_, height_, 3, pixels_.data(), width_ * 3) != 0;
}
