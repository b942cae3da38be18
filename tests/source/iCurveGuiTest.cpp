#include "source/iCurveGui.h"

#include <gtest/gtest.h>

#include "host/InputIds.h"
#include "source/CurveComparison.h"
#include "source/CurveUnit.h"

using mv::CurveParam;

namespace {

constexpr Int32 kPanelId = 4711;

std::vector<Int32> gadgetIds(const GeDialog& dialog) {
  std::vector<Int32> ids;
  for (const DialogGadget& gadget : dialog.gadgets()) {
    if (gadget.kind != DialogGadget::GroupEnd) ids.push_back(gadget.id);
  }
  return ids;
}

struct Panel {
  BaseContainer settings;
  std::unique_ptr<iCurveGui> gui;
  explicit Panel(Int32 mode, Int32 unit = UnitPercent) {
    settings.SetLong(CURVE_UNIT, unit);
    gui = std::make_unique<iCurveGui>(settings);
    gui->SetId(kPanelId);
    gui->SetLayoutMode(mode);
    EXPECT_TRUE(gui->CreateLayout());
  }
  void push(const CurveParam& curve, Int32 state = 0) {
    ASSERT_TRUE(gui->SetData(GeData(CURVE_TYPE_ID, CurveDataType(curve)), state));
  }
  const DialogGadget& field(Int32 id) const { return *gui->find(id); }
};

CurveParam twoInnerPoints() {
  CurveParam curve(-1.0, 2.0, 0.0, 1.0, "sin");
  curve.addPoint(0.25, 0.5, mv::PointSmooth);
  curve.addPoint(0.75, 1.5, mv::PointCorner);
  return curve;
}

}  // namespace

TEST(iCurveGui, compactLayoutIsTheAreaAlone) {
  Panel panel(iCustomGui::kLayoutCompact);
  EXPECT_EQ(gadgetIds(*panel.gui), (std::vector<Int32>{10062, 10052}));
  EXPECT_EQ(panel.gui->area().GetId(), 10052);
  EXPECT_EQ(panel.gui->area().GetWidth(), 280);
  EXPECT_EQ(panel.gui->area().GetHeight(), 45);
}

TEST(iCurveGui, extendedLayoutAddsThreeGroupsOfFields) {
  Panel panel(iCustomGui::kLayoutExtended);
  const std::vector<Int32> expected = {10062, 10052, 10063, 10065, 10064, 10067, 10066, 10063,
                                       10069, 10068, 10071, 10070, 10063, 10073, 10072};
  EXPECT_EQ(gadgetIds(*panel.gui), expected);
  EXPECT_EQ(panel.field(10064).kind, DialogGadget::NumberField);
  EXPECT_EQ(panel.field(10064).width, 60);
  EXPECT_EQ(panel.field(10072).kind, DialogGadget::TextField);
  EXPECT_EQ(panel.field(10072).flags, 56);
}

TEST(iCurveGui, layoutModeChangeLaysTheGroupOutAnew) {
  Panel panel(iCustomGui::kLayoutCompact);
  panel.push(twoInnerPoints());
  panel.gui->SetLayoutMode(iCustomGui::kLayoutExtended);
  EXPECT_EQ(gadgetIds(*panel.gui).size(), 15u);
  EXPECT_EQ(panel.gui->layoutChangeCount(), 1);
  EXPECT_DOUBLE_EQ(panel.field(10070).value, 2.0);
  panel.gui->SetLayoutMode(iCustomGui::kLayoutCompact);
  EXPECT_EQ(gadgetIds(*panel.gui), (std::vector<Int32>{10062, 10052}));
}

TEST(iCurveGui, fieldsShowASelectionOfExactlyOneExistingPoint) {
  const struct {
    std::set<Int32> selection;
    bool enabled;
    double x, y;
  } rows[] = {
      {{}, false, 0.0, 0.0},
      {{3, 4}, false, 0.0, 0.0},
      {{99}, false, 0.0, 0.0},
      {{4}, true, 0.75, 1.5},
  };
  for (const auto& row : rows) {
    Panel panel(iCustomGui::kLayoutExtended);
    panel.gui->area().selection = row.selection;
    panel.push(twoInnerPoints());
    EXPECT_EQ(panel.field(10064).enabled, row.enabled);
    EXPECT_EQ(panel.field(10066).enabled, row.enabled);
    EXPECT_EQ(panel.field(10064).value, row.x);
    EXPECT_EQ(panel.field(10066).value, row.y);
  }
  Panel panel(iCustomGui::kLayoutExtended);
  panel.push(twoInnerPoints());
  EXPECT_EQ(panel.field(10064).format, fourCharCode("frea"));
  EXPECT_EQ(panel.field(10066).format, fourCharCode("fpct"));
  EXPECT_EQ(panel.field(10068).value, -1.0);
  EXPECT_EQ(panel.field(10068).minimum, -1e308);
  EXPECT_EQ(panel.field(10068).step, 0.1);
  EXPECT_EQ(panel.field(10072).text, "sin(x)");
}

TEST(iCurveGui, initValuesMarkFormulaAndMixedValues) {
  const struct {
    const char* expression;
    Int32 state;
    Int32 showFormula, mixed;
  } rows[] = {{"sin", 0, 1, 0}, {"id", 1, 0, 1}, {"x", 0, 1, 0}};
  for (const auto& row : rows) {
    Panel panel(iCustomGui::kLayoutCompact);
    CurveParam curve;
    curve.setExpression(row.expression);
    panel.push(curve, row.state);
    EXPECT_EQ(panel.gui->area().showFormula, row.showFormula) << row.expression;
    EXPECT_EQ(panel.gui->area().mixedValues, row.mixed) << row.expression;
  }
}

TEST(iCurveGui, setDataWithoutACurveChangesNothing) {
  Panel panel(iCustomGui::kLayoutCompact);
  panel.push(twoInnerPoints());
  EXPECT_FALSE(panel.gui->SetData(GeData(Float(2.0)), 0));
  EXPECT_EQ(panel.gui->curve().getPointCount(), 4);
}

TEST(iCurveGui, fieldEditsChangeTheCurveAndGoToTheParentWithIt) {
  Panel panel(iCustomGui::kLayoutExtended);
  panel.gui->area().selection = {3};
  panel.push(twoInnerPoints());
  EXPECT_TRUE(panel.gui->editFloat(10066, 3.0));
  EXPECT_EQ(panel.gui->curve().findPoint(3)->y, 3.0);
  EXPECT_DOUBLE_EQ(panel.gui->curve().maximum(), 3.0 + 0.1 * 3.0);
  EXPECT_TRUE(panel.gui->editFloat(10064, 0.5));
  EXPECT_EQ(panel.gui->curve().findPoint(3)->x, 0.5);
  EXPECT_TRUE(panel.gui->editFloat(10068, -4.0));
  EXPECT_EQ(panel.gui->curve().minimum(), -4.0);
  EXPECT_TRUE(panel.gui->editString(10072, "u*"));
  std::string text;
  panel.gui->curve().getExpression(text);
  EXPECT_EQ(text, "sin(x)");
  const auto& sent = panel.gui->sentMessages();
  ASSERT_EQ(sent.size(), 4u);
  EXPECT_EQ(sent[0].GetId(), BFM_ACTION);
  EXPECT_EQ(sent[0].GetLong(BFM_ACTION_ID), kPanelId);
  const CustomDataType* carried = sent[2].GetCustomDataType(BFM_ACTION_VALUE, CURVE_TYPE_ID);
  ASSERT_NE(carried, nullptr);
  EXPECT_EQ(static_cast<const CurveDataType*>(carried)->minimum(), -4.0);
}

TEST(iCurveGui, areaActionRefillsTheFieldsAndReachesTheParent) {
  Panel panel(iCustomGui::kLayoutExtended);
  panel.push(twoInnerPoints());
  CurveGui& area = panel.gui->area();
  BaseContainer click;
  click.SetLong(BFM_INPUT_DEVICE, BFM_INPUT_MOUSE);
  click.SetLong(BFM_INPUT_CHANNEL, BFM_INPUT_MOUSELEFT);
  click.SetLong(BFM_INPUT_X, area.screen().toScreenX(0.75));
  click.SetLong(BFM_INPUT_Y, area.screen().toScreenY(1.5));
  EXPECT_TRUE(area.InputEvent(click));
  EXPECT_TRUE(panel.field(10064).enabled);
  EXPECT_EQ(panel.field(10064).value, 0.75);
  EXPECT_EQ(panel.gui->sentMessages().size(), 1u);
}

TEST(iCurveGui, otherCommandsAreIgnored) {
  Panel panel(iCustomGui::kLayoutExtended);
  EXPECT_TRUE(panel.gui->Command(10065, BaseContainer(BFM_ACTION)));
  EXPECT_TRUE(panel.gui->sentMessages().empty());
}
