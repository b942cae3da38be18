#include "host/DrawingRaster.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>

#include "host/BuiltInFont.h"
#include "host/GeUserArea.h"
#include "support/TestOutput.h"

namespace {

// Draws into a recording area of the given size.
class Sketch : public GeUserArea {
 public:
  std::function<void(GeUserArea&)> paint;
  void DrawMsg(int32_t, int32_t, int32_t, int32_t) override { paint(*this); }
};

DrawingRaster rasterOf(int32_t width, int32_t height, std::function<void(GeUserArea&)> paint) {
  Sketch sketch;
  sketch.SetSize(width, height);
  sketch.paint = std::move(paint);
  sketch.Redraw();
  DrawingRaster raster(width, height);
  raster.draw(sketch.drawing());
  return raster;
}

const uint32_t kBackground = DrawingRaster::rgbOf(DrawColor::ofPalette(PaletteBackground));

}  // namespace

TEST(DrawingRaster, rectanglesFillBothCornersInclusive) {
  const DrawingRaster raster = rasterOf(6, 5, [](GeUserArea& area) {
    area.DrawSetPen(1.0, 0.0, 0.0);
    area.DrawRectangle(4, 3, 1, 1);
  });
  for (int32_t y = 0; y < 5; ++y) {
    for (int32_t x = 0; x < 6; ++x) {
      const bool inside = x >= 1 && x <= 4 && y >= 1 && y <= 3;
      EXPECT_EQ(raster.pixel(x, y), inside ? 0xff0000u : kBackground) << x << "," << y;
    }
  }
}

TEST(DrawingRaster, linesSetEveryStepOfTheirLongerAxis) {
  const DrawingRaster raster = rasterOf(10, 10, [](GeUserArea& area) {
    area.DrawSetPen(0.0, 0.0, 1.0);
    area.DrawLine(0, 0, 8, 4);
    area.DrawLine(9, 9, 9, 9);
  });
  int count = 0;
  for (int32_t y = 0; y < 10; ++y) {
    for (int32_t x = 0; x < 10; ++x) count += raster.pixel(x, y) == 0x0000ffu;
  }
  EXPECT_EQ(count, 9 + 1);
  EXPECT_EQ(raster.pixel(0, 0), 0x0000ffu);
  EXPECT_EQ(raster.pixel(8, 4), 0x0000ffu);
  EXPECT_EQ(raster.pixel(4, 2), 0x0000ffu);
}

TEST(DrawingRaster, farCoordinatesAreCutWithoutCost) {
  const DrawingRaster raster = rasterOf(4, 4, [](GeUserArea& area) {
    area.DrawSetPen(0.0, 1.0, 0.0);
    area.DrawLine(-2000000000, 0, 2000000000, 3);
    area.DrawRectangle(-2000000000, -2000000000, 2000000000, 2000000000);
  });
  EXPECT_EQ(raster.pixel(2, 2), 0x00ff00u);
}

TEST(DrawingRaster, borderIsEtched) {
  const DrawingRaster raster =
      rasterOf(5, 4, [](GeUserArea& area) { area.DrawBorder(1, 0, 0, 4, 3); });
  const uint32_t dark = DrawingRaster::rgbOf(DrawColor::ofPalette(PaletteEdgeDark));
  const uint32_t light = DrawingRaster::rgbOf(DrawColor::ofPalette(PaletteEdgeLight));
  EXPECT_EQ(raster.pixel(0, 0), dark);
  EXPECT_EQ(raster.pixel(4, 0), dark);
  EXPECT_EQ(raster.pixel(0, 3), dark);
  EXPECT_EQ(raster.pixel(4, 3), light);
  EXPECT_EQ(raster.pixel(4, 1), light);
  EXPECT_EQ(raster.pixel(2, 2), kBackground);
}

TEST(DrawingRaster, textInkStaysInsideItsMeasuredBox) {
  const std::string text = "[0.5 | 90\xC2\xB0]";
  const int32_t width = BuiltInFont::width(text);
  const DrawingRaster raster =
      rasterOf(width + 4, BuiltInFont::height() + 4, [&](GeUserArea& area) {
        area.DrawSetTextCol(DrawColor::ofRgb(0, 0, 0), DrawColor::ofPalette(PaletteTransparent));
        area.DrawText(text, 2, 2);
      });
  int ink = 0, outside = 0;
  for (int32_t y = 0; y < BuiltInFont::height() + 4; ++y) {
    for (int32_t x = 0; x < width + 4; ++x) {
      if (raster.pixel(x, y) != 0) continue;
      ++ink;
      outside += x < 2 || y < 2 || x >= width + 2 || y >= BuiltInFont::height() + 2;
    }
  }
  EXPECT_GT(ink, 20);
  EXPECT_EQ(outside, 0);
  EXPECT_EQ(BuiltInFont::width("\xC2\xB0"), BuiltInFont::width("o"));
  EXPECT_EQ(BuiltInFont::width("\xE2\x82\xAC"), BuiltInFont::width("?"));
}

TEST(DrawingRaster, writesAPngAndRefusesAnUnwritablePath) {
  const DrawingRaster raster = rasterOf(3, 2, [](GeUserArea&) {});
  const std::string path = testOutputPath("raster.png");
  ASSERT_TRUE(raster.writePng(path));
  std::ifstream file(path, std::ios::binary);
  char signature[8] = {};
  file.read(signature, 8);
  EXPECT_EQ(std::string(signature + 1, 3), "PNG");
  EXPECT_FALSE(raster.writePng("/nonexistent/folder/raster.png"));
}
