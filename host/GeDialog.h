// GeDialog: a dialog of gadgets laid out in groups: user areas, static texts, number fields and
// text fields. This headless host keeps the layout as a list of gadgets with their values and
// enabled states; a script or a test plays the user by setting a field's value, which reaches
// Command as it would after an edit. Messages to the parent go to the parent dialog when there
// is one, else into a list that the caller can read.
#pragma once

#include <vector>

#include "host/BaseContainer.h"
#include "host/HostTypes.h"

class GeDialog;
class GeUserArea;

// The host's handle of a dialog.
class CDialog {
 public:
  explicit CDialog(GeDialog& dialog) : dialog_(dialog) {}
  GeDialog& dialog() const { return dialog_; }

 private:
  GeDialog& dialog_;
};

struct DialogGadget {
  enum Kind { Group, GroupEnd, UserArea, StaticText, NumberField, TextField };

  Kind kind = Group;
  Int32 id = 0;
  Int32 flags = 0;
  Int32 width = 0, height = 0;  // minimum size; columns and rows of a group
  String text;                  // static text, or the text of a text field
  Float value = 0.0, minimum = 0.0, maximum = 0.0, step = 0.0;
  Int32 format = 0;  // the unit code of a number field
  bool enabled = true;
};

class GeDialog {
 public:
  GeDialog() : handle_(*this) {}
  virtual ~GeDialog() = default;
  GeDialog(const GeDialog&) = delete;
  GeDialog& operator=(const GeDialog&) = delete;

  virtual Bool CreateLayout() { return true; }
  virtual Bool InitValues() { return true; }
  // A gadget's value changed (id is the gadget); msg is its action message.
  virtual Bool Command(Int32 id, const BaseContainer& msg);
  // A message from a child: an action message of a gadget becomes Command.
  virtual Int32 Message(const BaseContainer& msg, BaseContainer& result);

  CDialog* Get() { return &handle_; }
  // The dialog's own gadget number in its parent.
  void SetId(Int32 id) { id_ = id; }
  Int32 GetId() const { return id_; }
  void SetParent(GeDialog* parent) { parent_ = parent; }
  // To the parent dialog, or into sentMessages() when there is none.
  Bool SendParentMessage(const BaseContainer& msg);
  const std::vector<BaseContainer>& sentMessages() const { return sent_; }

  // Layout, in the order of the calls. Groups nest between GroupBegin and GroupEnd.
  Bool GroupBegin(Int32 id, Int32 flags, Int32 columns, Int32 rows);
  Bool GroupEnd();
  Bool AddUserArea(Int32 id, Int32 flags, Int32 width, Int32 height);
  // Makes area the gadget id and sends its messages here.
  Bool AttachUserArea(GeUserArea& area, Int32 id, Int32 flags);
  Bool AddStaticText(Int32 id, Int32 flags, Int32 width, Int32 height, const String& text);
  Bool AddEditNumberArrows(Int32 id, Int32 flags, Int32 width, Int32 height);
  Bool AddEditText(Int32 id, Int32 flags, Int32 width, Int32 height);
  // Removes what lies inside the group; the gadgets added next go into it, until LayoutChanged.
  Bool LayoutFlushGroup(Int32 id);
  Bool LayoutChanged(Int32 id);
  Int32 layoutChangeCount() const { return layoutChanges_; }

  // Values of number and text fields; false for an unknown gadget.
  Bool SetFloat(Int32 id, Float value, Float minimum, Float maximum, Float step, Int32 format);
  Bool SetString(Int32 id, const String& text);
  Bool GetFloat(Int32 id, Float& value) const;
  Bool GetString(Int32 id, String& text) const;
  Bool Enable(Int32 id, Bool enabled);

  // The user edits a field: its value changes (a number is held inside its bounds) and Command
  // follows with the action message; false for an unknown gadget.
  Bool editFloat(Int32 id, Float value);
  Bool editString(Int32 id, const String& text);

  const std::vector<DialogGadget>& gadgets() const { return gadgets_; }
  const DialogGadget* find(Int32 id) const;

 private:
  static constexpr size_t kAppend = static_cast<size_t>(-1);

  DialogGadget* findMutable(Int32 id);
  Bool add(DialogGadget gadget);
  BaseContainer actionOf(Int32 id) const;

  CDialog handle_;
  Int32 id_ = 0;
  GeDialog* parent_ = nullptr;
  GeUserArea* area_ = nullptr;
  std::vector<DialogGadget> gadgets_;
  size_t insertAt_ = kAppend;  // where a flushed group takes new gadgets
  std::vector<BaseContainer> sent_;
  Int32 layoutChanges_ = 0;
};
