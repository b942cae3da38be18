#include "host/BuiltInFont.h"

#include <cmath>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wsign-compare"
#include <stb/stb_easy_font.h>
#pragma GCC diagnostic pop

namespace {

constexpr char kDegree = '\x7f';
constexpr int32_t kLineHeight = 12;

struct Vertex {
  float x, y, z;
  unsigned char color[4];
};

}  // namespace

std::string BuiltInFont::glyphs(const std::string& text) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
      result += c >= 32 && c < 127 ? static_cast<char>(c) : '?';
    } else if (c == 0xC2 && i + 1 < text.size() &&
               static_cast<unsigned char>(text[i + 1]) == 0xB0) {
      result += kDegree;
      ++i;
    } else if ((c & 0xC0) != 0x80) {
      result += '?';  // the lead byte of any other character; its continuation bytes vanish
    }
  }
  return result;
}

int32_t BuiltInFont::height() { return kLineHeight; }

int32_t BuiltInFont::width(const std::string& text) {
  int32_t total = 0;
  for (char c : glyphs(text)) {
    char one[2] = {c == kDegree ? 'o' : c, 0};
    total += stb_easy_font_width(one);
  }
  return total;
}

std::vector<BuiltInFont::Box> BuiltInFont::boxes(const std::string& text, int32_t x, int32_t y) {
  std::vector<Box> result;
  int32_t left = x;
  for (char c : glyphs(text)) {
    char one[2] = {c == kDegree ? 'o' : c, 0};
    Vertex buffer[256];
    const int quads = stb_easy_font_print(0.0f, 0.0f, one, nullptr, buffer, sizeof buffer);
    const int32_t raise = c == kDegree ? -3 : 0;
    for (int q = 0; q < quads; ++q) {
      const Vertex& a = buffer[4 * q];
      const Vertex& b = buffer[4 * q + 2];
      result.push_back({left + static_cast<int32_t>(std::lround(a.x)),
                        y + 1 + raise + static_cast<int32_t>(std::lround(a.y)),
                        left + static_cast<int32_t>(std::lround(b.x)) - 1,
                        y + 1 + raise + static_cast<int32_t>(std::lround(b.y)) - 1});
    }
    left += stb_easy_font_width(one);
  }
  return result;
}
