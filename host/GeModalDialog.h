// GeModalDialog: a dialog that holds the user until it is closed. A plug-in builds its gadgets in
// CreateLayout and answers them in Command. The headless host shows an opened dialog on the
// console, one line per text it holds (the title first), and then presses its default button
// (DLG_OK) as a user reading it would; Open returns once the dialog is closed.
#pragma once

#include <vector>

#include "host/BaseContainer.h"
#include "host/Filename.h"

constexpr Int32 DLG_OK = 1;
constexpr Int32 DLG_TYPE_MODAL = 10;
constexpr Int32 CUSTOMGUI_BITMAPBUTTON = 1000479;
constexpr Int32 BFH_CENTER = 0, BFV_CENTER = 0;  // layout hints the headless host ignores

// One gadget of a modal dialog as its layout placed it.
struct ModalGadget {
  enum class Kind { Group, StaticText, CustomGui, ButtonGroup };
  Kind kind = Kind::Group;
  Int32 id = 0;
  Int32 type = 0;  // a custom GUI's plug-in id, a button group's buttons
  String text;     // a text's contents, a group's or custom GUI's title
  Filename image;  // what a bitmap button shows; empty when it has no image
};

class GeModalDialog {
 public:
  virtual ~GeModalDialog() = default;

  // Builds the layout and shows the dialog; false when the layout could not be built or the
  // dialog was closed other than by its default button.
  Bool Open(Int32 xpos = -1, Int32 ypos = -1, Int32 defaultw = 0, Int32 defaulth = 0);
  // Puts the dialog back where a saved window layout had it under the plug-in's id. The headless
  // host saves no window layouts: the dialog is laid out again but not shown; false when the
  // layout fails.
  Bool RestoreLayout(Int32 pluginid, Int32 subid, void* secret);
  // Closes the dialog with a result; false when it is not open.
  Bool Close(Bool result = true);
  Bool IsOpen() const { return open_; }

  virtual Bool CreateLayout() { return true; }
  // A gadget was used; true when the dialog handled it.
  virtual Bool Command(Int32 /*id*/, const BaseContainer& /*msg*/) { return false; }

  const String& GetTitle() const { return title_; }
  const std::vector<ModalGadget>& GetGadgets() const { return gadgets_; }

 protected:
  void SetTitle(const String& title) { title_ = title; }
  Bool GroupBegin(Int32 id, Int32 flags, Int32 cols, Int32 rows, const String& title,
                  Int32 groupflags);
  Bool GroupEnd();
  Bool AddStaticText(Int32 id, Int32 flags, Int32 w, Int32 h, const String& text, Int32 border);
  // The gadget of a custom GUI; its image may be set through the returned record until the
  // next gadget is added.
  ModalGadget* AddCustomGui(Int32 id, Int32 pluginid, const String& name, Int32 flags, Int32 w,
                            Int32 h, const BaseContainer& settings);
  // The group of standard buttons; `buttons` DLG_OK for the single OK button.
  Bool AddDlgGroup(Int32 buttons);

 private:
  String title_;
  std::vector<ModalGadget> gadgets_;
  Int32 openGroups_ = 0;
  Bool layOut();

  Bool open_ = false;
  Bool result_ = false;
};
