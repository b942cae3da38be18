// CurveGuiData: registers the curve editor as the editor of curve parameters: it makes and frees
// the panel (iCurveGui) that the host shows for one.
#pragma once

#include "host/CustomGuiData.h"

class CurveGuiData : public CustomGuiData {
 public:
  Int32 GetId() override;
  // The panel over the parameter's settings, as the host's dialog handle; null when it cannot
  // be made.
  CDialog* Alloc(const BaseContainer& settings) override;
  // gui is the panel that Alloc made; nothing happens when either is null.
  void Free(CDialog* dialog, void* gui) override;
  const char* GetResourceSym() override { return "CURVE"; }
  Int32 GetResourceDataType(Int32*& table) override;
};

// Registers the curve data type and its editor with the host, as one step of the plug-in's
// start: false when a registration fails. Without the type's name among the resource strings
// nothing is registered, and that is no failure.
Bool RegisterCurveDataType();
