#include "host/HairObject.h"

#include "host/HairGuides.h"
#include "host/PolygonObject.h"

HairObject::~HairObject() { delete guides_; }

void HairObject::SetGuides(HairGuides* guides, Bool clone) {
  if (guides == guides_) return;
  HairGuides* kept = guides && clone ? guides->GetClone() : guides;
  delete guides_;
  guides_ = kept;
  if (!guides_) return;
  BaseObject* surface = GetDataInstance()->GetObjectLink(HAIRSTYLE_LINK);
  if (surface && !surface->IsInstanceOf(Opolygon)) surface = surface->GetCache();
  guides_->SetSurface(dynamic_cast<PolygonObject*>(surface));
  SetDirty(DIRTYFLAGS_DATA);
}

BaseObject* HairObject::cloneObject() const {
  auto* clone = new HairObject();
  if (guides_) clone->guides_ = guides_->GetClone();
  return clone;
}
