#include "source/About.h"

#include "source/CommandState.h"

Bool About::Execute(BaseDocument* /*doc*/) { return dialog.Open(); }

Int32 About::GetState(BaseDocument* /*doc*/) { return kCommandEnabled; }

Bool About::RestoreLayout(void* secret) { return dialog.RestoreLayout(kRestoreId, 0, secret); }
