// iCustomGui: the panel that a registered editor gives the host for one parameter. The host
// pushes the parameter's value in with SetData (state 1: the selected objects hold different
// values) and takes it back with GetData after the panel's action message; the layout mode
// chooses between the compact panel (1) and the extended one (2).
#pragma once

#include "host/BaseContainer.h"
#include "host/GeData.h"
#include "host/SubDialog.h"

class iCustomGui : public SubDialog {
 public:
  static constexpr Int32 kLayoutCompact = 1;
  static constexpr Int32 kLayoutExtended = 2;

  virtual Bool SetData(const GeData& value, Int32 state) = 0;
  virtual GeData GetData(Int32& state) = 0;
  // The mode for the layout to come, or, once the panel is laid out, a change of mode after
  // which the panel lays itself out anew.
  Bool SetLayoutMode(Int32 mode);
  Int32 GetLayoutMode() const { return layoutMode_; }

 protected:
  virtual Bool LayoutModeChanged(Int32 mode) = 0;

 private:
  Int32 layoutMode_ = kLayoutCompact;
};
