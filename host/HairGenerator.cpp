#include "host/HairGenerator.h"

#include <algorithm>

#include "host/BaseTag.h"
#include "host/HairGuides.h"
#include "host/HairObject.h"
#include "host/HierarchyHelp.h"
#include "host/LineObject.h"
#include "host/LineTag.h"
#include "host/SegmentTag.h"

namespace {

void runHooks(HairObject* hair, HierarchyHelp* hh) {
  for (BaseTag* tag = hair->GetFirstTag(); tag; tag = tag->GetNext()) {
    HairPluginObjectData* hook = nullptr;
    if (!tag->Message(MSG_HAIR_GET_OBJECT_TYPE, &hook) || !hook || !hook->calc_generate) continue;
    hook->calc_generate(hh->GetDocument(), tag, hair, hh->GetThread(), nullptr, 0);
    HairGuides* guides =
        hook->calc_generate(hh->GetDocument(), tag, hair, hh->GetThread(), nullptr, 1);
    if (guides && guides != hair->GetGuides()) hair->SetGuides(guides, false);
  }
}

LineObject* linesOf(const HairGuides* guides) {
  Int32 perGuide = guides->GetSegmentCount() + 1;
  LineObject* line = LineObject::Alloc(guides->GetPointCount(), guides->GetCount());
  if (!line) return nullptr;
  std::copy(guides->GetPoints(), guides->GetPoints() + guides->GetPointCount(), line->GetPointW());
  for (Int32 g = 0; g < guides->GetCount(); ++g) {
    line->GetSegmentTag()->GetDataAddressW()[g] = {perGuide, false};
    for (Int32 j = 0; j < perGuide; ++j) {
      line->GetLineTag()->GetDataAddressW()[g * perGuide + j] = Float(j) / (perGuide - 1);
    }
  }
  return line;
}

}  // namespace

BaseObject* HairGenerator::GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) {
  auto* hair = dynamic_cast<HairObject*>(op);
  if (!hair) return nullptr;
  BaseObject* surface = hair->GetDataInstance()->GetObjectLink(HAIRSTYLE_LINK);
  UInt64 stamp = surface ? surface->GetHierarchyStamp() + surface->GetDirty(DIRTYFLAGS_CACHE) : 0;
  if (!op->CheckCache(hh) && !op->IsDirty(DIRTYFLAGS_DATA) && stamp == surfaceStamp_) {
    return op->GetCache(hh);
  }
  surfaceStamp_ = stamp;
  runHooks(hair, hh);
  LineObject* line = hair->GetGuides() ? linesOf(hair->GetGuides()) : nullptr;
  if (line) line->SetName(op->GetName());
  return line;
}
