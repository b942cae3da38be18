#include "source/Toolbar.h"

#include "host/LoadFile.h"
#include "source/CommandState.h"
#include "source/Main.h"

Filename Toolbar::layoutPath() { return Filename(pluginPath()) + "res" + "Morvo.l4d"; }

Bool Toolbar::Execute(BaseDocument* /*doc*/) {
  LoadFile(layoutPath());
  return true;
}

Int32 Toolbar::GetState(BaseDocument* /*doc*/) { return kCommandEnabled; }
