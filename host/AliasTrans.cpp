#include "host/AliasTrans.h"

#include "host/BaseList2D.h"

void AliasTrans::Record(const BaseList2D* original, BaseList2D* copy) {
  if (!original || !copy) return;
  copyOf_[original->GetUniqueId()] = copy->GetUniqueId();
  copies_.push_back(copy->GetUniqueId());
}

void AliasTrans::translateContainer(BaseContainer& container) const {
  for (Int32 i = 0; i < container.GetCount(); ++i) {
    Int32 id = container.GetIndexId(i);
    const GeData* value = container.GetIndexData(i);
    if (value->GetType() == DA_CONTAINER) {
      translateContainer(*container.GetContainerInstance(id));
    } else if (value->GetType() == DA_ALIASLINK) {
      auto it = copyOf_.find(value->GetLinkId());
      if (it != copyOf_.end()) container.SetLink(id, BaseList2D::FindByUniqueId(it->second));
    }
  }
}

void AliasTrans::Translate(Bool /*connectOldGoals*/) {
  for (Int64 id : copies_) {
    if (BaseList2D* copy = BaseList2D::FindByUniqueId(id)) {
      translateContainer(*copy->GetDataInstance());
    }
  }
}
