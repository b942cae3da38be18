#include "host/iCustomGui.h"

Bool iCustomGui::SetLayoutMode(Int32 mode) {
  layoutMode_ = mode;
  return gadgets().empty() ? true : LayoutModeChanged(mode);
}
