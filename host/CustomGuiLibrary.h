// CustomGuiLibrary: the table of operations through which any plug-in reaches a registered
// editor's panel by its dialog handle alone: push a value in, take it back, change the layout
// mode. A plug-in clears a table, has the host fill it and installs it under the editor's id.
#pragma once

#include "host/GeData.h"
#include "host/HostTypes.h"

class CDialog;

struct CustomGuiLibrary {
  Bool (*setData)(CDialog* dialog, const GeData& value, Int32 state) = nullptr;
  GeData (*getData)(CDialog* dialog, Int32* state) = nullptr;
  Bool (*setLayoutMode)(CDialog* dialog, Int32 mode) = nullptr;
};

// Fills the table with the host's operations, which act on the iCustomGui behind a handle and
// fail (false, an empty value) on any other dialog or a null handle.
void FillCustomGuiLibrary(CustomGuiLibrary& library);
// Installs a filled table under id at a version; false when the table is null or incomplete,
// size is not the table's size, or the id already has one.
Bool InstallLibrary(Int32 id, const CustomGuiLibrary* library, Int32 version, Int32 size);
// The table under id when its version is at least the one asked for, else null.
const CustomGuiLibrary* CheckLib(Int32 id, Int32 version);
