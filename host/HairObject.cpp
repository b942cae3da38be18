#include "host/HairObject.h"

#include "host/BaseTag.h"
#include "host/HairLibrary.h"
#include "host/PolygonObject.h"

HairObject::~HairObject() { HairGuides::Free(guides_); }

void HairObject::SetGuides(HairGuides* guides, Bool clone) {
  HairGuides* taken = clone && guides ? guides->GetClone() : guides;
  if (taken == guides_) return;
  HairGuides::Free(guides_);
  guides_ = taken;
  if (guides_) guides_->owner_ = this;
  SetDirty(DIRTYFLAGS_DATA);
}

PolygonObject* HairObject::GetRootObject() const {
  BaseList2D* link = GetDataInstance()->GetLink(HAIR_LINK);
  return link && link->IsInstanceOf(Opolygon) ? static_cast<PolygonObject*>(link) : nullptr;
}

Bool HairObject::BuildGuides(BaseDocument* doc, BaseThread* thread) {
  for (BaseTag* tag = GetFirstTag(); tag; tag = tag->GetNext()) {
    HairPluginMessageData message;
    if (!tag->Message(MSG_HAIR_GET_OBJECT_TYPE, &message) || !message.data) continue;
    const auto* hook = static_cast<const HairPluginObjectData*>(message.data);
    if (!hook->generate) continue;
    hook->generate(doc, tag, this, thread, nullptr, 0);
    HairGuides* guides = hook->generate(doc, tag, this, thread, nullptr, 1);
    if (!guides) SetGuides(nullptr, false);
    return guides != nullptr;
  }
  return false;
}

BaseObject* HairObject::cloneObject() const {
  auto* clone = new HairObject();
  if (guides_) clone->SetGuides(guides_, true);
  return clone;
}
