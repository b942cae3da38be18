#include "host/CustomGuiLibrary.h"

#include <map>

#include "host/GeDialog.h"
#include "host/iCustomGui.h"

namespace {

struct Installed {
  CustomGuiLibrary library;
  Int32 version;
};

std::map<Int32, Installed>& libraries() {
  static std::map<Int32, Installed> installed;
  return installed;
}

iCustomGui* panelOf(CDialog* dialog) {
  return dialog ? dynamic_cast<iCustomGui*>(&dialog->dialog()) : nullptr;
}

Bool setData(CDialog* dialog, const GeData& value, Int32 state) {
  iCustomGui* panel = panelOf(dialog);
  return panel && panel->SetData(value, state);
}

GeData getData(CDialog* dialog, Int32* state) {
  iCustomGui* panel = panelOf(dialog);
  Int32 ignored = 0;
  return panel ? panel->GetData(state ? *state : ignored) : GeData();
}

Bool setLayoutMode(CDialog* dialog, Int32 mode) {
  iCustomGui* panel = panelOf(dialog);
  return panel && panel->SetLayoutMode(mode);
}

}  // namespace

void FillCustomGuiLibrary(CustomGuiLibrary& library) {
  library.setData = &setData;
  library.getData = &getData;
  library.setLayoutMode = &setLayoutMode;
}

Bool InstallLibrary(Int32 id, const CustomGuiLibrary* library, Int32 version, Int32 size) {
  if (!library || size != static_cast<Int32>(sizeof(CustomGuiLibrary)) || !library->setData ||
      !library->getData || !library->setLayoutMode) {
    return false;
  }
  return libraries().emplace(id, Installed{*library, version}).second;
}

const CustomGuiLibrary* CheckLib(Int32 id, Int32 version) {
  const auto found = libraries().find(id);
  return found == libraries().end() || found->second.version < version ? nullptr
                                                                       : &found->second.library;
}
