// HairObject: the hair object (Ohair): guides that strands grow from, rooted on the polygon
// object of its link HAIR_LINK. Its guides come from a generator tag that answers the hair
// library's message (see HairLibrary); BuildGuides runs that generator's two passes.
#pragma once

#include "host/BaseObject.h"
#include "host/HairGuides.h"

class BaseDocument;
class BaseThread;
class PolygonObject;

constexpr Int32 HAIR_LINK = 1000;  // object link: the polygon object the guides grow on

class HairObject : public BaseObject {
 public:
  HairObject() : BaseObject(Ohair) {}
  ~HairObject() override;

  // Takes the guides (or, with clone, a copy of them) in place of the ones it had; null
  // removes them.
  void SetGuides(HairGuides* guides, Bool clone);
  HairGuides* GetGuides() const { return guides_; }
  // The polygon object of HAIR_LINK, or null when the link is empty or no polygon object.
  PolygonObject* GetRootObject() const;

  // Asks the tags, in order, for a guide generator and runs the first one found: pass 0, then
  // pass 1. Guides that pass 1 returns stay; a null result leaves the object without guides.
  // False when no tag generates or the generator gave none.
  Bool BuildGuides(BaseDocument* doc, BaseThread* thread);

 protected:
  BaseObject* cloneObject() const override;

 private:
  HairGuides* guides_ = nullptr;  // owned
};
