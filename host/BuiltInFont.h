// BuiltInFont: the one small bitmap font of the headless host: measures texts and breaks them
// into filled rectangles. ASCII is drawn as is; the degree sign as a small raised "o"; any other
// character as "?".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class BuiltInFont {
 public:
  struct Box {
    int32_t x1, y1, x2, y2;  // inclusive pixel corners
  };

  // The height of a line of text in pixels.
  static int32_t height();
  static int32_t width(const std::string& text);
  // The pixels of text drawn with its top left corner at (x, y).
  static std::vector<Box> boxes(const std::string& text, int32_t x, int32_t y);

 private:
  // text in the font's own characters (one byte each); degree signs become '\x7f'.
  static std::string glyphs(const std::string& text);
};
