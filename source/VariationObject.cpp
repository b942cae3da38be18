#include "source/VariationObject.h"

#include "source/PluginIds.h"

Bool VariationObject::Init(GeListNode* node) {
  MorvoObjectData::Init(node);
  static_cast<BaseObject*>(node)->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, true);
  return true;
}

Bool VariationObject::GetDEnabling(GeListNode* node, const DescID& id, const GeData& value,
                                   DESCFLAGS_ENABLE flags, const BaseContainer* itemdesc) {
  const Int32 mode = static_cast<BaseObject*>(node)->GetDataInstance()->GetLong(variationMode);
  if (id[0].id == variationSeed) return mode == ModeRandom;
  if (id[0].id == variationIndex) return mode == ModeSpecial;
  return MorvoObjectData::GetDEnabling(node, id, value, flags, itemdesc);
}
