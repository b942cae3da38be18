#include "source/CurveGui.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/MathConstants.h"
#include "source/CurveUnit.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

const DrawColor kBlack = DrawColor::ofRgb(0, 0, 0);
const DrawColor kOrange = DrawColor::ofRgb(1.0, 0.4, 0.0);
const DrawColor kGrey = DrawColor::ofRgb(0.5, 0.5, 0.5);

DrawOperation line(int32_t x1, int32_t y1, int32_t x2, int32_t y2, DrawColor color) {
  return {DrawOperation::Line, x1, y1, x2, y2, color, color, 0, {}};
}
DrawOperation rectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, DrawColor color) {
  return {DrawOperation::Rectangle, x1, y1, x2, y2, color, color, 0, {}};
}
DrawOperation palette(DrawOperation operation, int32_t number) {
  operation.color = operation.background = DrawColor::ofPalette(number);
  return operation;
}
DrawOperation border(int32_t width, int32_t height) {
  return {DrawOperation::Border,
          0,
          0,
          width - 1,
          height - 1,
          DrawColor::ofPalette(PaletteEdgeDark),
          DrawColor::ofPalette(PaletteEdgeLight),
          1,
          {}};
}

struct Area {
  CurveParam curve;
  CurveGui gui;
  Area(int32_t width, int32_t height) {
    gui.SetSize(width, height);
    gui.curve = &curve;
  }
  const std::vector<DrawOperation>& draw() {
    gui.Redraw();
    return gui.drawing();
  }
};

std::vector<DrawOperation> operationsOf(const std::vector<DrawOperation>& drawing,
                                        DrawOperation::Kind kind) {
  std::vector<DrawOperation> result;
  for (const DrawOperation& operation : drawing) {
    if (operation.kind == kind) result.push_back(operation);
  }
  return result;
}

}  // namespace

// 12 by 8 pixels with a one-pixel border: inner width 10, inner height 6. A flat curve at 0 with
// limits 0 to 1 lies at sy = 1 + (6 - 1 - 1) = 5; x runs from 1 to 1 + 9.
TEST(CurveGuiDraw, flatCurveInASmallAreaDrawsExactlyTheseOperations) {
  Area area(12, 8);
  std::vector<DrawOperation> expected = {
      palette(rectangle(0, 0, 11, 7, kBlack), PaletteBackground)};
  for (int32_t px = 1; px <= 10; ++px) expected.push_back(line(px, 7, px, 5, kGrey));
  expected.push_back(palette(line(1, 5, 11, 5, kBlack), PaletteZeroLine));
  // The point squares, cut to x 1 to 11 and y 1 to 7.
  expected.push_back(rectangle(1, 3, 2, 7, kBlack));
  expected.push_back(rectangle(1, 4, 3, 6, kBlack));
  expected.push_back(rectangle(9, 3, 11, 7, kBlack));
  expected.push_back(rectangle(8, 4, 11, 6, kBlack));
  expected.push_back(border(12, 8));
  EXPECT_EQ(area.draw(), expected);
  EXPECT_TRUE(area.gui.drewOffScreen());
}

TEST(CurveGuiDraw, screenMappingFollowsTheLimits) {
  Area area(102, 52);  // inner 100 by 50
  area.curve.setMinimum(-1.0);
  area.curve.setMaximum(3.0);
  const CurveScreen screen = area.gui.screen();
  const struct {
    double x, y;
    int32_t sx, sy;
  } rows[] = {
      {0.0, 3.0, 1, 1},    {1.0, -1.0, 100, 49}, {0.5, 1.0, 50, 25},
      {0.25, 0.0, 25, 37}, {0.1, 2.9, 10, 2},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(screen.toScreenX(row.x), row.sx) << row.x;
    EXPECT_EQ(screen.toScreenY(row.y), row.sy) << row.y;
  }
  EXPECT_DOUBLE_EQ(screen.fromScreenX(51), 0.5);
  EXPECT_DOUBLE_EQ(screen.fromScreenY(26), 1.0);
  EXPECT_DOUBLE_EQ(screen.fromScreenY(1), 3.0);
}

TEST(CurveGuiDraw, unreachableValuesLandFarOutside) {
  Area area(20, 20);
  area.curve.setMaximum(0.0);  // no range at all
  const CurveScreen screen = area.gui.screen();
  EXPECT_LT(screen.toScreenY(std::nan("")), -1000);
  EXPECT_GT(screen.toScreenY(-1.0), 1000);
  EXPECT_FALSE(area.draw().empty());
}

TEST(CurveGuiDraw, mixedValuesDrawOnlyBackgroundAndBorder) {
  Area area(30, 20);
  area.gui.mixedValues = 1;
  area.gui.showFormula = 1;
  const std::vector<DrawOperation> expected = {
      palette(rectangle(0, 0, 29, 19, kBlack), PaletteMixedBackground), border(30, 20)};
  EXPECT_EQ(area.draw(), expected);
}

TEST(CurveGuiDraw, withoutACurveNothingIsDrawn) {
  CurveGui gui;
  gui.SetSize(30, 20);
  gui.Redraw();
  EXPECT_TRUE(gui.drawing().empty());
}

TEST(CurveGuiDraw, disabledAreaEtchesCurveZeroLineAndPoints) {
  Area area(12, 8);
  area.curve.setMinimum(-1.0);  // zero at sy = 1 + 0.5 * 4 = 3
  area.gui.Enable(false);
  const auto drawing = area.draw();
  const auto lines = operationsOf(drawing, DrawOperation::Line);
  ASSERT_EQ(lines.size(), 10u + 10u + 2u);
  EXPECT_EQ(lines[0], palette(line(0, 3, 1, 3, kBlack), PaletteEdgeDark));
  EXPECT_EQ(lines[10], palette(line(1, 4, 2, 4, kBlack), PaletteEdgeLight));
  EXPECT_EQ(lines[20], palette(line(1, 3, 11, 3, kBlack), PaletteEdgeDark));
  EXPECT_EQ(lines[21], palette(line(1, 4, 11, 4, kBlack), PaletteEdgeLight));
  const auto rectangles = operationsOf(drawing, DrawOperation::Rectangle);
  const std::vector<DrawOperation> expected = {
      palette(rectangle(0, 0, 11, 7, kBlack), PaletteBackground),
      palette(rectangle(1, 3, 3, 5, kBlack), PaletteEdgeLight),
      palette(rectangle(1, 2, 2, 4, kBlack), PaletteEdgeDark),
      palette(rectangle(10, 3, 11, 5, kBlack), PaletteEdgeLight),
      palette(rectangle(9, 2, 11, 4, kBlack), PaletteEdgeDark)};
  EXPECT_EQ(rectangles, expected);
}

TEST(CurveGuiDraw, zeroLineOnlyInsideTheArea) {
  const struct {
    double minimum, maximum;
    bool drawn;
  } rows[] = {{-1.0, 1.0, true},
              {0.0, 1.0, true},
              {-1.0, 0.0, true},
              {0.5, 1.0, false},
              {-3.0, -1.0, false}};
  for (const auto& row : rows) {
    Area area(22, 12);
    area.curve.setMinimum(row.minimum);
    area.curve.setMaximum(row.maximum);
    size_t zeroLines = 0;
    for (const DrawOperation& operation : area.draw()) {
      zeroLines += operation.color == DrawColor::ofPalette(PaletteZeroLine);
    }
    EXPECT_EQ(zeroLines, row.drawn ? 1u : 0u) << row.minimum << " " << row.maximum;
  }
}

TEST(CurveGuiDraw, selectedFreePointShowsHandlesAndControlSquares) {
  Area area(22, 22);  // inner 20 by 20: sx = 1 + 19 x, sy = 1 + 18 (1 - y)
  CurvePoint point = CurvePoint::at(0.5, 0.5, mv::PointFree, 2);
  point.inX = 0.25;
  point.inY = 1.0;
  point.outX = 0.75;
  point.outY = 0.0;
  ASSERT_TRUE(area.curve.setPoint(point, true));
  area.gui.selection = {2};
  const auto drawing = area.draw();
  // The handles from (10, 10) to (5, 1) and (15, 19), then the orange point, then black squares.
  const std::vector<DrawOperation> tail = {line(10, 10, 5, 1, kBlack),
                                           line(10, 10, 15, 19, kBlack),
                                           rectangle(9, 8, 11, 12, kOrange),
                                           rectangle(8, 9, 12, 11, kOrange),
                                           rectangle(4, 1, 6, 2, kBlack),
                                           rectangle(14, 18, 16, 20, kBlack),
                                           rectangle(19, 17, 21, 21, kBlack),
                                           rectangle(18, 18, 21, 20, kBlack),
                                           border(22, 22)};
  ASSERT_GE(drawing.size(), tail.size());
  EXPECT_EQ(std::vector<DrawOperation>(drawing.end() - tail.size(), drawing.end()), tail);
}

TEST(CurveGuiDraw, formulaMarkIsRedWhenEnabledAndGreyWhenNot) {
  for (bool enabled : {true, false}) {
    Area area(60, 30);
    area.gui.showFormula = 1;
    area.gui.Enable(enabled);
    const auto texts = operationsOf(area.draw(), DrawOperation::Text);
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].text, "f(x)");
    EXPECT_EQ(texts[0].x1, 3);
    EXPECT_EQ(texts[0].y1, 3);
    EXPECT_EQ(texts[0].color,
              enabled ? DrawColor::ofRgb(1, 0, 0) : DrawColor::ofPalette(PaletteDisabledText));
    EXPECT_EQ(texts[0].background, DrawColor::ofPalette(PaletteTransparent));
  }
}

TEST(CurveGuiDraw, valueTagStaysInsideTheArea) {
  const int32_t fontHeight = CurveGui().DrawGetFontHeight();
  const struct {
    double x, y;
    bool up, left;
  } rows[] = {{0.25, 0.9, false, false}, {0.25, 0.05, true, false}, {1.0, 0.9, false, true}};
  for (const auto& row : rows) {
    Area area(202, 102);  // inner 200 by 100
    area.curve = CurveParam(0.0, 1.0, 0.5, 0.5, "id");
    const int id = area.curve.addPoint(row.x, row.y, mv::PointCorner);
    area.gui.unit = UnitPercent;
    area.gui.dragging = 1;
    area.gui.activePoint = id;
    const auto texts = operationsOf(area.draw(), DrawOperation::Text);
    ASSERT_EQ(texts.size(), 1u);
    const CurvePoint& point = *area.curve.findPoint(id);
    const std::string expected =
        "[" + curveNumberText(point.x) + " | " + curveValueText(UnitPercent, point.y) + "]";
    EXPECT_EQ(texts[0].text, expected);
    const CurveScreen screen = area.gui.screen();
    const int32_t sx = screen.toScreenX(point.x), sy = screen.toScreenY(point.y);
    const int32_t width = area.gui.DrawGetTextWidth(expected);
    EXPECT_EQ(texts[0].y1, row.up ? sy - fontHeight : sy) << row.x;
    const int32_t offset = row.up ? 0 : 10;
    EXPECT_EQ(texts[0].x1, row.left ? sx - width : sx + offset) << row.x;
  }
}

TEST(CurveGuiDraw, anExpressionShowsAsTheMarkNotInTheDrawnCurve) {
  Area plain(40, 20), sine(40, 20);
  plain.curve = CurveParam(0.0, 1.0, 0.25, 0.75, "id");
  sine.curve = CurveParam(0.0, 1.0, 0.25, 0.75, "sin");
  sine.gui.showFormula = CurveGui::showsFormula(sine.curve);
  EXPECT_FALSE(CurveGui::showsFormula(plain.curve));
  const auto plainLines = operationsOf(plain.draw(), DrawOperation::Line);
  EXPECT_EQ(operationsOf(sine.draw(), DrawOperation::Line), plainLines);
  ASSERT_EQ(operationsOf(sine.gui.drawing(), DrawOperation::Text).size(), 1u);
  EXPECT_TRUE(operationsOf(plain.gui.drawing(), DrawOperation::Text).empty());
}
