#include "source/PhyllotaxisObject.h"

#include "core/MathConstants.h"

namespace {

constexpr Int32 kArcRadius = 2001;
constexpr Int32 kArcStart = 2005;
constexpr Int32 kArcEnd = 2006;

bool addStarterProfile(BaseObject* op) {
  BaseObject* arc = BaseObject::Alloc(Osplinearc);
  if (arc == nullptr) return false;
  arc->SetName("Profile");
  BaseContainer* data = arc->GetDataInstance();
  data->SetReal(kArcRadius, 100.0);
  data->SetReal(kArcStart, -mt::kPi / 2.0);
  data->SetReal(kArcEnd, mt::kPi / 2.0);
  arc->InsertUnderLast(op);
  return true;
}

}  // namespace

Bool PhyllotaxisObject::Message(GeListNode* node, Int32 type, void* data) {
  if (type == MSG_MENUPREPARE) return addStarterProfile(static_cast<BaseObject*>(node));
  return MorvoObjectData::Message(node, type, data);
}

Bool PhyllotaxisObject::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                                     DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  const BaseContainer* data = static_cast<BaseObject*>(node)->GetDataInstance();
  switch (id[0].id) {
    case reductionMinimum:
    case reductionCompensation:
      return data->GetLong(reductionMode) != 0;
    case tilt:
      return !data->GetBool(followPath);
    case nodeGrowth:
      return data->GetBool(nodeGrowthCurved);
    default:
      return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
  }
}
