#include "host/GeDialog.h"

#include <algorithm>

#include "host/GeUserArea.h"
#include "host/InputIds.h"

namespace {

// A gadget of a kind, id, flags and minimum size; everything else keeps its default.
DialogGadget gadgetOf(DialogGadget::Kind kind, Int32 id, Int32 flags, Int32 width, Int32 height) {
  DialogGadget gadget;
  gadget.kind = kind;
  gadget.id = id;
  gadget.flags = flags;
  gadget.width = width;
  gadget.height = height;
  return gadget;
}

}  // namespace

Bool GeDialog::Command(Int32, const BaseContainer&) { return true; }

Int32 GeDialog::Message(const BaseContainer& msg, BaseContainer&) {
  if (msg.GetId() == BFM_ACTION) return Command(msg.GetLong(BFM_ACTION_ID), msg) ? 1 : 0;
  return 0;
}

Bool GeDialog::SendParentMessage(const BaseContainer& msg) {
  if (!parent_) {
    sent_.push_back(msg);
    return true;
  }
  BaseContainer result;
  parent_->Message(msg, result);
  return true;
}

Bool GeDialog::add(DialogGadget gadget) {
  if (insertAt_ == kAppend) {
    gadgets_.push_back(std::move(gadget));
  } else {
    gadgets_.insert(gadgets_.begin() + insertAt_++, std::move(gadget));
  }
  return true;
}

Bool GeDialog::GroupBegin(Int32 id, Int32 flags, Int32 columns, Int32 rows) {
  return add(gadgetOf(DialogGadget::Group, id, flags, columns, rows));
}

Bool GeDialog::GroupEnd() { return add(gadgetOf(DialogGadget::GroupEnd, 0, 0, 0, 0)); }

Bool GeDialog::AddUserArea(Int32 id, Int32 flags, Int32 width, Int32 height) {
  return add(gadgetOf(DialogGadget::UserArea, id, flags, width, height));
}

Bool GeDialog::AttachUserArea(GeUserArea& area, Int32 id, Int32) {
  const DialogGadget* gadget = find(id);
  if (!gadget || gadget->kind != DialogGadget::UserArea) return false;
  area.SetId(id);
  area.SetDialog(this);
  area.SetSize(std::max(area.GetWidth(), gadget->width),
               std::max(area.GetHeight(), gadget->height));
  area_ = &area;
  return true;
}

Bool GeDialog::AddStaticText(Int32 id, Int32 flags, Int32 width, Int32 height, const String& text) {
  DialogGadget gadget = gadgetOf(DialogGadget::StaticText, id, flags, width, height);
  gadget.text = text;
  return add(gadget);
}

Bool GeDialog::AddEditNumberArrows(Int32 id, Int32 flags, Int32 width, Int32 height) {
  return add(gadgetOf(DialogGadget::NumberField, id, flags, width, height));
}

Bool GeDialog::AddEditText(Int32 id, Int32 flags, Int32 width, Int32 height) {
  return add(gadgetOf(DialogGadget::TextField, id, flags, width, height));
}

// A group's content runs from its begin to the matching end.
Bool GeDialog::LayoutFlushGroup(Int32 id) {
  auto begin = std::find_if(gadgets_.begin(), gadgets_.end(), [id](const DialogGadget& g) {
    return g.kind == DialogGadget::Group && g.id == id;
  });
  if (begin == gadgets_.end()) return false;
  int depth = 0;
  auto end = begin + 1;
  for (; end != gadgets_.end(); ++end) {
    if (end->kind == DialogGadget::Group) ++depth;
    if (end->kind == DialogGadget::GroupEnd && depth-- == 0) break;
  }
  insertAt_ = static_cast<size_t>(begin - gadgets_.begin()) + 1;
  gadgets_.erase(begin + 1, end);
  if (area_ && !find(area_->GetId())) area_ = nullptr;
  return true;
}

Bool GeDialog::LayoutChanged(Int32) {
  insertAt_ = kAppend;
  ++layoutChanges_;
  return true;
}

const DialogGadget* GeDialog::find(Int32 id) const {
  for (const DialogGadget& gadget : gadgets_) {
    if (gadget.id == id && gadget.kind != DialogGadget::Group &&
        gadget.kind != DialogGadget::GroupEnd) {
      return &gadget;
    }
  }
  return nullptr;
}

DialogGadget* GeDialog::findMutable(Int32 id) { return const_cast<DialogGadget*>(find(id)); }

Bool GeDialog::SetFloat(Int32 id, Float value, Float minimum, Float maximum, Float step,
                        Int32 format) {
  DialogGadget* gadget = findMutable(id);
  if (!gadget) return false;
  gadget->value = value;
  gadget->minimum = minimum;
  gadget->maximum = maximum;
  gadget->step = step;
  gadget->format = format;
  return true;
}

Bool GeDialog::SetString(Int32 id, const String& text) {
  DialogGadget* gadget = findMutable(id);
  if (!gadget) return false;
  gadget->text = text;
  return true;
}

Bool GeDialog::GetFloat(Int32 id, Float& value) const {
  const DialogGadget* gadget = find(id);
  if (!gadget) return false;
  value = gadget->value;
  return true;
}

Bool GeDialog::GetString(Int32 id, String& text) const {
  const DialogGadget* gadget = find(id);
  if (!gadget) return false;
  text = gadget->text;
  return true;
}

Bool GeDialog::Enable(Int32 id, Bool enabled) {
  DialogGadget* gadget = findMutable(id);
  if (!gadget) return false;
  gadget->enabled = enabled;
  if (area_ && area_->GetId() == id) area_->Enable(enabled);
  return true;
}

BaseContainer GeDialog::actionOf(Int32 id) const {
  BaseContainer action(BFM_ACTION);
  action.SetLong(BFM_ACTION_ID, id);
  action.SetLong(BFM_ACTION_VALCHG, 1);
  return action;
}

Bool GeDialog::editFloat(Int32 id, Float value) {
  DialogGadget* gadget = findMutable(id);
  if (!gadget || gadget->kind != DialogGadget::NumberField) return false;
  gadget->value = std::clamp(value, gadget->minimum, gadget->maximum);
  BaseContainer action = actionOf(id);
  action.SetReal(BFM_ACTION_VALUE, gadget->value);
  return Command(id, action);
}

Bool GeDialog::editString(Int32 id, const String& text) {
  DialogGadget* gadget = findMutable(id);
  if (!gadget || gadget->kind != DialogGadget::TextField) return false;
  gadget->text = text;
  BaseContainer action = actionOf(id);
  action.SetString(BFM_ACTION_VALUE, text);
  return Command(id, action);
}
