#include "source/iCurveGui.h"

#include "host/GeResource.h"
#include "host/InputIds.h"
#include "source/CurveUnit.h"

using mv::CurvePoint;

namespace {

constexpr Int32 kAreaFlags = 56;
constexpr Int32 kAreaWidth = 280, kAreaHeight = 45;
constexpr Int32 kFieldWidth = 60, kFieldHeight = 10;
constexpr Int32 kTextFlags = 56, kTextWidth = 40;
constexpr Int32 kAttachFlags = 4;
constexpr Float kFieldLimit = 1e308;
constexpr Float kFieldStep = 0.1;

}  // namespace

iCurveGui::iCurveGui(const BaseContainer& settings) : settings_(settings) {
  area_.unit = settings_.GetLong(CURVE_UNIT);
  area_.curve = &curve_;
}

Bool iCurveGui::CreateLayout() {
  GroupBegin(kOuterGroup, 0, 1, 0);
  layoutContent();
  GroupEnd();
  return AttachUserArea(area_, kArea, kAttachFlags);
}

void iCurveGui::layoutContent() {
  AddUserArea(kArea, kAreaFlags, kAreaWidth, kAreaHeight);
  if (GetLayoutMode() != kLayoutExtended) return;
  addFieldGroup(8, {{10065, kPointX}, {10067, kPointY}});
  addFieldGroup(8, {{10069, kMinimum}, {10071, kMaximum}});
  GroupBegin(kFieldGroup, 56, 2, 1);
  AddStaticText(10073, 0, 0, 0, GeLoadString(10073));
  AddEditText(kExpression, kTextFlags, kTextWidth, kFieldHeight);
  GroupEnd();
}

void iCurveGui::addFieldGroup(Int32 flags,
                              std::initializer_list<std::pair<Int32, Int32>> labelledFields) {
  GroupBegin(kFieldGroup, flags, static_cast<Int32>(2 * labelledFields.size()), 1);
  for (auto [label, field] : labelledFields) {
    AddStaticText(label, 0, 0, 0, GeLoadString(label));
    AddEditNumberArrows(field, 0, kFieldWidth, kFieldHeight);
  }
  GroupEnd();
}

const CurvePoint* iCurveGui::singleSelection() const {
  return area_.selection.size() == 1 ? curve_.findPoint(*area_.selection.begin()) : nullptr;
}

void iCurveGui::fillFields() {
  const Int32 code = curveUnitCode(settings_.GetLong(CURVE_UNIT));
  const CurvePoint* point = singleSelection();
  SetFloat(kPointX, point ? point->x : 0.0, -kFieldLimit, kFieldLimit, kFieldStep,
           fourCharCode("frea"));
  SetFloat(kPointY, point ? point->y : 0.0, -kFieldLimit, kFieldLimit, kFieldStep, code);
  Enable(kPointX, point != nullptr);
  Enable(kPointY, point != nullptr);
  SetFloat(kMinimum, curve_.minimum(), -kFieldLimit, kFieldLimit, kFieldStep, code);
  SetFloat(kMaximum, curve_.maximum(), -kFieldLimit, kFieldLimit, kFieldStep, code);
  std::string text;
  curve_.getExpression(text);
  SetString(kExpression, text);
}

Bool iCurveGui::InitValues() {
  if (GetLayoutMode() == kLayoutExtended) fillFields();
  area_.showFormula = CurveGui::showsFormula(curve_);
  area_.mixedValues = mixed_;
  area_.Redraw();
  return true;
}

bool iCurveGui::applyCommand(Int32 id) {
  Float value = 0.0;
  GetFloat(id, value);
  const CurvePoint* point = singleSelection();
  switch (id) {
    case kArea:
      if (GetLayoutMode() == kLayoutExtended) fillFields();
      return true;
    case kPointX:
      if (point) curve_.setPointX(point->id, value);
      break;
    case kPointY:
      if (point && curve_.setPointY(point->id, value)) curve_.growLimits();
      break;
    case kMinimum:
      curve_.setMinimum(value);
      break;
    case kMaximum:
      curve_.setMaximum(value);
      break;
    case kExpression: {
      String text;
      GetString(kExpression, text);
      curve_.setExpression(text);
      break;
    }
    default:
      return false;
  }
  area_.Redraw();
  return true;
}

// After a change the message goes on to the parent with the panel's curve as its value.
Bool iCurveGui::Command(Int32 id, const BaseContainer& msg) {
  if (!applyCommand(id)) return true;
  BaseContainer action(msg);
  action.SetLong(BFM_ACTION_ID, GetId());
  Int32 state = 0;
  action.SetData(BFM_ACTION_VALUE, GetData(state));
  SendParentMessage(action);
  return true;
}

Bool iCurveGui::SetData(const GeData& value, Int32 state) {
  const CustomDataType* data = value.GetCustomDataType(CURVE_TYPE_ID);
  if (!data) return false;
  static_cast<mv::CurveParam&>(curve_) = *static_cast<const CurveDataType*>(data);
  mixed_ = state == 1;
  return InitValues();
}

GeData iCurveGui::GetData(Int32& state) {
  state = 0;
  return GeData(CURVE_TYPE_ID, curve_);
}

Bool iCurveGui::LayoutModeChanged(Int32 mode) {
  LayoutFlushGroup(kOuterGroup);
  layoutContent();
  AttachUserArea(area_, kArea, kAttachFlags);
  if (mode == kLayoutExtended) fillFields();
  return LayoutChanged(kOuterGroup);
}
