#include "source/MorvoTagData.h"

#include "core/ParameterSet.h"
#include "host/BaseTag.h"

Bool MorvoTagData::Init(GeListNode* node) {
  BaseContainer* data = static_cast<BaseTag*>(node)->GetDataInstance();
  data->SetReal(mv::IdCarriedGrowth, 1.0);
  data->SetLong(mv::IdIndex, 0);
  return true;
}
