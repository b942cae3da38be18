#include "source/CurveEditScript.h"

#include <gtest/gtest.h>

#include "source/CurveMenu.h"
#include "source/CurveUnit.h"

using mv::CurveParam;

TEST(CurveEditScript, refusesLinesThatAreNoStepsAndNamesTheLine) {
  const struct {
    const char* text;
    const char* error;
  } rows[] = {
      {"jump 1 2", "line 1: unknown step \"jump\" (size, click, drag, menu)"},
      {"# fine\nclick 1", "line 2: click is X Y [ctrl] [extend]"},
      {"click 1 2 3 4", "line 1: click is X Y [ctrl] [extend]"},
      {"click 1 2 shift", "line 1: click is X Y [ctrl] [extend]"},
      {"drag 1 2", "line 1: drag is X Y X1 Y1 [X2 Y2 ...] [extend]"},
      {"drag 1 2 3 4 5", "line 1: drag is X Y X1 Y1 [X2 Y2 ...] [extend]"},
      {"drag 1 2 3 4 ctrl", "line 1: unexpected \"ctrl\""},
      {"drag 1 2 3 999999", "line 1: drag is X Y X1 Y1 [X2 Y2 ...] [extend]"},
      {"menu 1 2", "line 1: menu is X Y ENTRY"},
      {"menu 1 2 0x5", "line 1: menu is X Y ENTRY"},
      {"size 15 100", "line 1: size is W H, each 16 to 8192"},
      {"size 100 9000", "line 1: size is W H, each 16 to 8192"},
      {"click 1.5 2", "line 1: click is X Y [ctrl] [extend]"},
  };
  for (const auto& row : rows) {
    CurveEditScript script;
    std::string error;
    EXPECT_FALSE(script.parse(row.text, error)) << row.text;
    EXPECT_EQ(error, row.error) << row.text;
  }
}

// In an area of 102 by 102 pixels with limits 0 to 1 a point (x, y) lies at 1 + 99 x,
// 1 + 98 (1 - y), and a pixel (px, py) means x = (px - 1) / 100, y = 1 - (py - 1) / 100.
TEST(CurveEditScript, playsClicksDragsAndMenusInOrder) {
  CurveEditScript script;
  std::string error;
  ASSERT_TRUE(script.parse(R"(# a point, moved, made free, a second one chosen from the menu
size 102 102
click 51 51 ctrl        # adds (0.5, 0.5), id 3
drag 50 50 60 50 60 40  # grabs it and moves it by 10 pixels right and up
menu 60 40 900025       # point type free
menu 26 90 900017       # on empty space: a smooth point at (0.25, 0.11)
menu 70 70 0            # dismissed
click 5 5               # empty space: not taken by the area
)",
                           error))
      << error;
  CurveParam curve;
  EXPECT_EQ(script.play(curve, UnitNone), 6);
  ASSERT_EQ(curve.getPointCount(), 4);
  const mv::CurvePoint& moved = *curve.findPoint(3);
  EXPECT_DOUBLE_EQ(moved.x, 0.5 + 10.0 / 99);
  EXPECT_DOUBLE_EQ(moved.y, 0.5 + 10.0 / 99);
  EXPECT_EQ(moved.type, mv::PointFree);
  const mv::CurvePoint& added = *curve.findPoint(4);
  EXPECT_DOUBLE_EQ(added.x, 0.25);
  EXPECT_DOUBLE_EQ(added.y, 0.11);
  EXPECT_EQ(added.type, mv::PointSmooth);
}

TEST(CurveEditScript, extendedSelectionsDragTogether) {
  CurveEditScript script;
  std::string error;
  ASSERT_TRUE(
      script.parse("size 102 102\n"
                   "click 21 51 ctrl\n"          // (0.2, 0.5), id 3
                   "click 61 51 ctrl\n"          // (0.6, 0.5), id 4
                   "click 20 50\n"               // selects 3
                   "drag 60 50 60 30 extend\n",  // adds 4, both 20 pixels up
                   error))
      << error;
  CurveParam curve;
  EXPECT_EQ(script.play(curve, UnitPercent), 4);
  EXPECT_DOUBLE_EQ(curve.findPoint(3)->y, 0.5 + 20.0 / 99);
  EXPECT_DOUBLE_EQ(curve.findPoint(4)->y, 0.5 + 20.0 / 99);
}
