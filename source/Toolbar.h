// Toolbar: the menu command that loads the plug-in's window layout (res/Morvo.l4d beside the
// plug-in) into the host.
#pragma once

#include "host/CommandData.h"
#include "host/Filename.h"

class Toolbar : public CommandData {
 public:
  // Hands the layout to the host's LoadFile; true even when the host cannot load it, which the
  // host reports itself.
  Bool Execute(BaseDocument* doc) override;
  Int32 GetState(BaseDocument* doc) override;

  // Where the layout lies: the plug-in's folder, then "res", then "Morvo.l4d".
  static Filename layoutPath();
};
