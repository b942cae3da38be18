#include "host/GeModalDialog.h"

#include "host/HostConsole.h"

Bool GeModalDialog::layOut() {
  title_.clear();
  gadgets_.clear();
  openGroups_ = 0;
  if (CreateLayout() && openGroups_ == 0) return true;
  GePrint("A dialog could not be laid out");
  return false;
}

Bool GeModalDialog::RestoreLayout(Int32 /*pluginid*/, Int32 /*subid*/, void* /*secret*/) {
  return layOut();
}

Bool GeModalDialog::Open(Int32 /*xpos*/, Int32 /*ypos*/, Int32 /*defaultw*/, Int32 /*defaulth*/) {
  if (!layOut()) return false;
  open_ = true;
  result_ = false;
  if (!title_.empty()) GePrint(title_);
  for (const ModalGadget& gadget : gadgets_) {
    if (gadget.kind == ModalGadget::Kind::StaticText && !gadget.text.empty()) GePrint(gadget.text);
  }
  Command(DLG_OK, BaseContainer());
  const Bool closedWithOk = !open_ && result_;
  open_ = false;
  return closedWithOk;
}

Bool GeModalDialog::Close(Bool result) {
  if (!open_) return false;
  open_ = false;
  result_ = result;
  return true;
}

Bool GeModalDialog::GroupBegin(Int32 id, Int32 /*flags*/, Int32 /*cols*/, Int32 /*rows*/,
                               const String& title, Int32 /*groupflags*/) {
  gadgets_.push_back({ModalGadget::Kind::Group, id, 0, title, Filename()});
  ++openGroups_;
  return true;
}

Bool GeModalDialog::GroupEnd() {
  if (openGroups_ == 0) return false;
  --openGroups_;
  return true;
}

Bool GeModalDialog::AddStaticText(Int32 id, Int32 /*flags*/, Int32 /*w*/, Int32 /*h*/,
                                  const String& text, Int32 /*border*/) {
  gadgets_.push_back({ModalGadget::Kind::StaticText, id, 0, text, Filename()});
  return true;
}

ModalGadget* GeModalDialog::AddCustomGui(Int32 id, Int32 pluginid, const String& name,
                                         Int32 /*flags*/, Int32 /*w*/, Int32 /*h*/,
                                         const BaseContainer& /*settings*/) {
  gadgets_.push_back({ModalGadget::Kind::CustomGui, id, pluginid, name, Filename()});
  return &gadgets_.back();
}

Bool GeModalDialog::AddDlgGroup(Int32 buttons) {
  gadgets_.push_back({ModalGadget::Kind::ButtonGroup, 0, buttons, String(), Filename()});
  return true;
}
