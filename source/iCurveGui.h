// iCurveGui: the panel of a curve parameter: the curve's graph and, in the extended layout,
// number fields for the selected point, the limits and a text field for the expression. It holds
// its own copy of the curve; the host pushes a curve in with SetData and takes the edited one
// back from the action message that every change sends. The curve type must be registered for
// the panel's values to hold curves.
#pragma once

#include "host/iCustomGui.h"
#include "source/CurveDataType.h"
#include "source/CurveGui.h"

class iCurveGui : public iCustomGui {
 public:
  // Gadget numbers of the panel.
  static constexpr Int32 kOuterGroup = 10062;
  static constexpr Int32 kArea = 10052;
  static constexpr Int32 kFieldGroup = 10063;
  static constexpr Int32 kPointX = 10064;
  static constexpr Int32 kPointY = 10066;
  static constexpr Int32 kMinimum = 10068;
  static constexpr Int32 kMaximum = 10070;
  static constexpr Int32 kExpression = 10072;

  // settings holds "UNIT".
  explicit iCurveGui(const BaseContainer& settings);

  Bool CreateLayout() override;
  Bool InitValues() override;
  Bool Command(Int32 id, const BaseContainer& msg) override;
  // False, and nothing changes, when value holds no curve; state 1 marks mixed values.
  Bool SetData(const GeData& value, Int32 state) override;
  GeData GetData(Int32& state) override;

  CurveGui& area() { return area_; }
  const mv::CurveParam& curve() const { return curve_; }

 protected:
  Bool LayoutModeChanged(Int32 mode) override;

 private:
  void layoutContent();
  void addFieldGroup(Int32 flags, std::initializer_list<std::pair<Int32, Int32>> labelledFields);
  void fillFields();
  // The point of a selection of exactly one existing point, else null.
  const mv::CurvePoint* singleSelection() const;
  // Applies a field's change; false for gadgets the panel does not answer.
  bool applyCommand(Int32 id);

  BaseContainer settings_;
  CurveDataType curve_;
  bool mixed_ = false;
  CurveGui area_;
};
