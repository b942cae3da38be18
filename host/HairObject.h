// HairObject: the host's hair object (Ohair 1017305). Its guides grow on the polygon object
// linked in 1000 (its current state when it is a generator). Hair plug-ins hook in through a
// tag on the hair object: asked with message MSG_HAIR_GET_OBJECT_TYPE and a pointer to a
// HairPluginObjectData pointer, a tag that answers puts its hook record there; the hair object
// then calls the record's generate function with pass 0, then pass 1, whose guides it keeps.
// Its cache is a line object of the guides, one segment per guide.
#pragma once

#include "host/BaseObject.h"

class BaseThread;
class HairGuides;
class HairObject;

constexpr Int32 HAIRSTYLE_LINK = 1000;
constexpr Int32 MSG_HAIR_GET_OBJECT_TYPE = 1018952;

using HairGenerateFunction = HairGuides* (*)(BaseDocument* doc, BaseList2D* tag, HairObject* hair,
                                             BaseThread* thread, void* renderData, Int32 pass);

// The hook record of a hair plug-in: version 1000, size 128, and the functions it offers.
struct HairPluginObjectData {
  Int32 version = 0;
  Int32 size = 0;
  HairGenerateFunction calc_generate = nullptr;
};

class HairObject : public BaseObject {
 public:
  HairObject() : BaseObject(Ohair) {}
  ~HairObject() override;
  // Takes `guides` (or a copy of them with `clone`), bound to the current surface.
  void SetGuides(HairGuides* guides, Bool clone);
  HairGuides* GetGuides() const { return guides_; }

 protected:
  BaseObject* cloneObject() const override;

 private:
  HairGuides* guides_ = nullptr;  // owned
};
