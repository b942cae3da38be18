#include <gtest/gtest.h>

#include "host/InputIds.h"
#include "source/CurveComparison.h"
#include "source/CurveGui.h"
#include "source/CurveMenu.h"
#include "source/CurveUnit.h"

using mv::CurveParam;
using mv::CurvePoint;

namespace {

constexpr Int32 kAreaId = 10052;

// An area of 102 by 102 pixels: inner 100 by 100, so that with limits 0 to 1 a point (x, y)
// lies at sx = 1 + 99 x, sy = 1 + 98 (1 - y), and a mouse step of one pixel is 1 / 99 in x and
// y alike.
struct Editor {
  CurveParam curve;
  CurveGui gui;
  Editor() {
    gui.SetSize(102, 102);
    gui.SetId(kAreaId);
    gui.curve = &curve;
  }
  Int32 sx(double x) const { return gui.screen().toScreenX(x); }
  Int32 sy(double y) const { return gui.screen().toScreenY(y); }
  Bool press(Int32 channel, Int32 x, Int32 y, Int32 qualifier = 0) {
    BaseContainer event;
    event.SetLong(BFM_INPUT_DEVICE, BFM_INPUT_MOUSE);
    event.SetLong(BFM_INPUT_CHANNEL, channel);
    event.SetLong(BFM_INPUT_VALUE, 1);
    event.SetLong(BFM_INPUT_QUALIFIER, qualifier);
    event.SetLong(BFM_INPUT_X, x);
    event.SetLong(BFM_INPUT_Y, y);
    return gui.InputEvent(event);
  }
  // A left press at (x, y), then the button held through the positions and let go.
  Bool drag(Int32 x, Int32 y, std::vector<std::pair<Int32, Int32>> positions) {
    gui.scriptMousePath(positions);
    return press(BFM_INPUT_MOUSELEFT, x, y);
  }
  Bool menu(Int32 x, Int32 y, Int32 choice) {
    gui.scriptMenuChoice(choice);
    return press(BFM_INPUT_MOUSERIGHT, x, y);
  }
  const CurvePoint& point(Int32 id) const { return *curve.findPoint(id); }
};

// A curve from (0, 0.2) to (1, 0.8) with a corner point id 3 at (0.3, 0.5) and a free point
// id 4 at (0.7, 0.4) with controls (0.6, 0.3) and (0.8, 0.6).
void addTwoPoints(CurveParam& curve) {
  curve = CurveParam(0.0, 1.0, 0.2, 0.8, "id");
  ASSERT_EQ(curve.addPoint(0.3, 0.5, mv::PointCorner), 3);
  CurvePoint free = CurvePoint::at(0.7, 0.4, mv::PointFree, 4);
  free.inX = 0.6;
  free.inY = 0.3;
  free.outX = 0.8;
  free.outY = 0.6;
  ASSERT_TRUE(curve.setPoint(free, true));
}

std::vector<Int32> entryIds(const BaseContainer& menu) {
  std::vector<Int32> ids;
  for (Int32 index = 0; index < menu.GetCount(); ++index) ids.push_back(menu.GetIndexId(index));
  return ids;
}

}  // namespace

TEST(CurveGuiInput, leftClickOnEmptySpaceKeepsTheSelectionAndSaysNothing) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.gui.selection = {3, 9};
  EXPECT_TRUE(editor.press(BFM_INPUT_MOUSELEFT, 50, 90));
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{3, 9}));
  EXPECT_TRUE(editor.gui.sentMessages().empty());
}

TEST(CurveGuiInput, ctrlClickAddsASmoothPointEvenOutsideTheLimits) {
  Editor editor;
  EXPECT_TRUE(editor.press(BFM_INPUT_MOUSELEFT, 41, -49, QCTRL));
  ASSERT_EQ(editor.curve.getPointCount(), 3);
  const CurvePoint& added = *editor.curve.getPoint(1);
  EXPECT_EQ(added.type, mv::PointSmooth);
  EXPECT_DOUBLE_EQ(added.x, 0.4);
  EXPECT_DOUBLE_EQ(added.y, 1.5);
  EXPECT_EQ(editor.curve.maximum(), 1.0);
  ASSERT_EQ(editor.gui.sentMessages().size(), 1u);
  const BaseContainer& message = editor.gui.sentMessages()[0];
  EXPECT_EQ(message.GetId(), BFM_ACTION);
  EXPECT_EQ(message.GetLong(BFM_ACTION_ID), kAreaId);
  EXPECT_EQ(message.GetLong(BFM_ACTION_VALCHG), 1);
}

TEST(CurveGuiInput, refusesOtherDevicesChannelsAndAMissingCurve) {
  Editor editor;
  BaseContainer key;
  key.SetLong(BFM_INPUT_DEVICE, BFM_INPUT_KEYBOARD);
  key.SetLong(BFM_INPUT_CHANNEL, BFM_INPUT_MOUSELEFT);
  EXPECT_FALSE(editor.gui.InputEvent(key));
  EXPECT_FALSE(editor.press(3, 10, 10));
  editor.gui.curve = nullptr;
  EXPECT_FALSE(editor.press(BFM_INPUT_MOUSELEFT, 10, 10, QCTRL));
}

TEST(CurveGuiInput, clickSelectsAPointAndTheExtendKeyAddsOne) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.gui.selection = {4};
  // Within 4 pixels in both directions still hits.
  EXPECT_TRUE(editor.press(BFM_INPUT_MOUSELEFT, editor.sx(0.3) + 4, editor.sy(0.5) - 4));
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{3}));
  editor.gui.setKeyDown(KEY_EXTEND_SELECTION, true);
  EXPECT_TRUE(editor.press(BFM_INPUT_MOUSELEFT, editor.sx(0.7), editor.sy(0.4)));
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{3, 4}));
  // Five pixels away is a miss.
  editor.gui.setKeyDown(KEY_EXTEND_SELECTION, false);
  EXPECT_TRUE(editor.press(BFM_INPUT_MOUSELEFT, editor.sx(0.3) + 5, editor.sy(0.5)));
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{3, 4}));
}

TEST(CurveGuiInput, dragMovesThePointByTheMouseStepsAndGrowsAFreeLimitAfterwards) {
  Editor editor;
  addTwoPoints(editor.curve);
  const Int32 x = editor.sx(0.3), y = editor.sy(0.5);
  EXPECT_TRUE(editor.drag(x, y, {{x + 5, y}, {x + 10, y - 10}, {x + 10, y - 80}}));
  EXPECT_DOUBLE_EQ(editor.point(3).x, 0.3 + 10.0 / 99);
  EXPECT_DOUBLE_EQ(editor.point(3).y, 0.5 + 80.0 / 99);
  // The highest y is 0.5 + 80 / 99, the lowest 0.2: the upper limit takes a tenth of the range.
  const double highest = 0.5 + 80.0 / 99;
  EXPECT_DOUBLE_EQ(editor.curve.maximum(), highest + 0.1 * (highest - 0.2));
  EXPECT_EQ(editor.curve.minimum(), 0.0);
  EXPECT_EQ(editor.gui.dragging, 0);
  EXPECT_EQ(editor.gui.activePoint, 3);
  EXPECT_EQ(editor.gui.sentMessages().size(), 1u);
}

TEST(CurveGuiInput, dragStopsAtTheControlRangeOfANeighbour) {
  Editor editor;
  addTwoPoints(editor.curve);
  const Int32 x = editor.sx(0.3), y = editor.sy(0.5);
  // Steps of 10 pixels: 0.401, 0.502, 0.603 lies inside the free point's 0.6 to 0.8.
  EXPECT_TRUE(editor.drag(x, y, {{x + 10, y}, {x + 20, y}, {x + 30, y}, {x + 40, y}}));
  EXPECT_DOUBLE_EQ(editor.point(3).x, 0.3 + 20.0 / 99);
}

TEST(CurveGuiInput, endPointsKeepTheirXButTakeTheirY) {
  Editor editor;
  addTwoPoints(editor.curve);
  const Int32 x = editor.sx(0.0), y = editor.sy(0.2);
  EXPECT_TRUE(editor.drag(x, y, {{x + 7, y - 9}}));
  EXPECT_EQ(editor.point(0).x, 0.0);
  EXPECT_DOUBLE_EQ(editor.point(0).y, 0.2 + 9.0 / 99);
}

TEST(CurveGuiInput, fixedLimitsStopTheValueAndStayPut) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.curve.setFixedLimits(3);
  const Int32 x = editor.sx(0.3), y = editor.sy(0.5);
  EXPECT_TRUE(editor.drag(x, y, {{x, y - 30}, {x, y - 70}}));
  EXPECT_EQ(editor.point(3).y, 1.0);
  EXPECT_EQ(editor.curve.maximum(), 1.0);
  EXPECT_TRUE(editor.drag(x, editor.sy(1.0), {{x, editor.sy(1.0) + 200}}));
  EXPECT_EQ(editor.point(3).y, 0.0);
  EXPECT_EQ(editor.curve.minimum(), 0.0);
}

TEST(CurveGuiInput, selectedPointsMoveTogetherAndARefusedOneStays) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.gui.selection = {3, 4, 17};
  editor.gui.setKeyDown(KEY_EXTEND_SELECTION, true);
  const Int32 x = editor.sx(0.7), y = editor.sy(0.4);
  // 25 pixels right: the free point's out control would pass 1 and is refused; the corner
  // point follows.
  EXPECT_TRUE(editor.drag(x, y, {{x + 25, y}}));
  EXPECT_DOUBLE_EQ(editor.point(3).x, 0.3 + 25.0 / 99);
  EXPECT_DOUBLE_EQ(editor.point(4).x, 0.7);
}

TEST(CurveGuiInput, freeControlMovesAloneAndLeavesTheLimits) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.gui.selection = {4};
  const Int32 x = editor.sx(0.8), y = editor.sy(0.6);
  EXPECT_TRUE(editor.drag(x, y, {{x + 3, y - 60}}));
  EXPECT_DOUBLE_EQ(editor.point(4).outX, 0.8 + 3.0 / 99);
  EXPECT_DOUBLE_EQ(editor.point(4).outY, 0.6 + 60.0 / 99);
  EXPECT_EQ(editor.point(4).inX, 0.6);
  EXPECT_EQ(editor.point(4).inY, 0.3);
  EXPECT_EQ(editor.curve.maximum(), 1.0);
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{4}));
}

TEST(CurveGuiInput, mirroredControlTakesTheOtherAlong) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.curve.setPointType(4, mv::PointMirrored);
  editor.gui.selection = {4};
  const Int32 x = editor.sx(0.6), y = editor.sy(0.3);
  EXPECT_TRUE(editor.drag(x, y, {{x - 3, y + 6}}));
  const CurvePoint& point = editor.point(4);
  EXPECT_DOUBLE_EQ(point.inX, 0.6 - 3.0 / 99);
  EXPECT_DOUBLE_EQ(point.inY, 0.3 - 6.0 / 99);
  EXPECT_DOUBLE_EQ(point.outX, 2 * 0.7 - point.inX);
  EXPECT_DOUBLE_EQ(point.outY, 2 * 0.4 - point.inY);
}

TEST(CurveGuiInput, pointMenuHasItsEntriesWithGreyedAndCheckedMarks) {
  Editor editor;
  addTwoPoints(editor.curve);
  EXPECT_TRUE(editor.menu(editor.sx(0.0), editor.sy(0.2), 0));
  const BaseContainer& menu = editor.gui.lastMenu();
  const std::vector<Int32> top = {
      CurveMenu::kDelete,   CurveMenu::kPointType,   CurveMenu::kValues,   0,
      CurveMenu::kToPoints, CurveMenu::kFixedLimits, CurveMenu::kFitLimits};
  EXPECT_EQ(entryIds(menu), top);
  EXPECT_EQ(menu.GetString(CurveMenu::kDelete), "Delete Point&d&");
  const BaseContainer types = menu.GetContainer(CurveMenu::kPointType);
  EXPECT_EQ(entryIds(types), (std::vector<Int32>{1, 900022, 900023, 900024, 900025}));
  EXPECT_EQ(types.GetString(900022), "Corner&c&");
  EXPECT_EQ(types.GetString(900024), "Mirrored&d&");
  EXPECT_EQ(types.GetString(900025), "Free");
  const BaseContainer limits = menu.GetContainer(CurveMenu::kFixedLimits);
  EXPECT_EQ(limits.GetString(900031), "None&c&");
  EXPECT_EQ(limits.GetString(900028), "Both");
  // Dismissed: no redraw, but the parent hears of it.
  EXPECT_EQ(editor.gui.redrawCount(), 0);
  EXPECT_EQ(editor.gui.sentMessages().size(), 1u);
}

TEST(CurveGuiInput, valuePresetsFollowTheUnitAndTheFixedLimits) {
  const struct {
    Int32 unit;
    Int32 fixedLimits;
    double minimum, maximum;
    std::vector<Int32> ids;
  } rows[] = {
      {UnitNone, 0, 0.0, 1.0, {1, 900005, 900006, 900007, 900008, 900009, 900010, 900011}},
      {UnitPercent, 3, 0.0, 1.0, {1, 900006, 900007, 900008}},
      {UnitMeter, 2, 0.0, 1.0, {1, 900006, 900007, 900008, 900009, 900010, 900011}},
      {UnitNone, 1, -0.5, 1.0, {1, 900005, 900006, 900007, 900008, 900009}},
      {UnitDegree, 0, 0.0, 1.0, {1, 900002, 900003, 900004, 900008, 900012, 900013, 900014}},
      {UnitDegree, 3, -2.0, 2.0, {1, 900004, 900008, 900012}},
  };
  for (const auto& row : rows) {
    CurveParam curve(row.minimum, row.maximum, 0.0, 0.0, "id");
    curve.setFixedLimits(row.fixedLimits);
    const BaseContainer menu = CurveMenu::forPoint(curve, 0, row.unit);
    EXPECT_EQ(entryIds(menu.GetContainer(CurveMenu::kValues)), row.ids) << row.unit;
  }
  CurveParam curve;
  EXPECT_EQ(
      CurveMenu::forPoint(curve, 0, UnitDegree).GetContainer(CurveMenu::kValues).GetString(900002),
      "222.492 \xC2\xB0 (phi)");
  EXPECT_EQ(
      CurveMenu::forPoint(curve, 0, UnitPercent).GetContainer(CurveMenu::kValues).GetString(900009),
      "-50 %");
}

TEST(CurveGuiInput, presetSetsTheValueAndGrowsTheLimits) {
  Editor editor;
  addTwoPoints(editor.curve);
  EXPECT_TRUE(editor.menu(editor.sx(0.3), editor.sy(0.5), 900005));
  EXPECT_EQ(editor.point(3).y, 2.0);
  EXPECT_DOUBLE_EQ(editor.curve.maximum(), 2.0 + 0.1 * 1.8);
  EXPECT_EQ(editor.gui.redrawCount(), 1);
}

TEST(CurveGuiInput, deleteRemovesTheClickedAndEverySelectedPoint) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.curve.addPoint(0.5, 0.1, mv::PointCorner);  // id 5
  editor.gui.selection = {4, 1, 40};
  EXPECT_TRUE(editor.menu(editor.sx(0.3), editor.sy(0.5), CurveMenu::kDelete));
  EXPECT_EQ(editor.curve.getPointCount(), 3);
  EXPECT_NE(editor.curve.findPoint(5), nullptr);
  EXPECT_TRUE(editor.gui.selection.empty());
}

TEST(CurveGuiInput, spaceMenuAddsAPointOfTheChosenTypeWhereClicked) {
  Editor editor;
  EXPECT_TRUE(editor.menu(50, 50, CurveMenu::kAddCorner + mv::PointFree));
  const BaseContainer& menu = editor.gui.lastMenu();
  EXPECT_EQ(entryIds(menu), (std::vector<Int32>{CurveMenu::kAddPoint, 0, CurveMenu::kToPoints,
                                                CurveMenu::kFixedLimits, CurveMenu::kFitLimits}));
  ASSERT_EQ(editor.curve.getPointCount(), 3);
  EXPECT_EQ(editor.curve.getPoint(1)->type, mv::PointFree);
  EXPECT_DOUBLE_EQ(editor.curve.getPoint(1)->x, 0.49);
  EXPECT_DOUBLE_EQ(editor.curve.getPoint(1)->y, 0.51);
}

TEST(CurveGuiInput, menuChoicesOfLimitsAndPoints) {
  Editor editor;
  editor.curve.setExpression("u*2");
  EXPECT_TRUE(editor.menu(60, 95, 900029));
  EXPECT_EQ(editor.curve.fixedLimits(), 2);
  EXPECT_TRUE(editor.menu(60, 95, CurveMenu::kToPoints));
  EXPECT_EQ(editor.curve.getPointCount(), 20);
  EXPECT_DOUBLE_EQ(editor.curve.maximum(), 2.1);
  // An id of no entry of this menu counts as dismissed.
  const int redraws = editor.gui.redrawCount();
  EXPECT_TRUE(editor.menu(60, 95, CurveMenu::kDelete));
  EXPECT_EQ(editor.gui.redrawCount(), redraws);
  EXPECT_EQ(editor.curve.getPointCount(), 20);
  editor.curve = CurveParam(0.0, 5.0, 0.0, 1.0, "id");
  EXPECT_TRUE(editor.menu(60, 50, CurveMenu::kFitLimits));
  EXPECT_DOUBLE_EQ(editor.curve.maximum(), 1.1);
}

TEST(CurveGuiInput, anAreaWithoutRoomMovesNothing) {
  Editor editor;
  addTwoPoints(editor.curve);
  editor.gui.SetSize(3, 102);  // inner width 1: no step in x can be measured
  const CurveParam before = editor.curve;
  const Int32 x = editor.sx(0.3), y = editor.sy(0.5);
  EXPECT_TRUE(editor.drag(x, y, {{x + 1, y - 20}}));
  EXPECT_EQ(editor.gui.selection, (std::set<Int32>{3}));
  EXPECT_EQ(CurveComparison::compare(&before, &editor.curve), 0);
}
