#include "host/BaseContainer.h"

#include "host/BaseObject.h"

GeData* BaseContainer::find(Int32 id) {
  for (auto& entry : entries_) {
    if (entry.first == id) return &entry.second;
  }
  return nullptr;
}

const GeData* BaseContainer::find(Int32 id) const {
  return const_cast<BaseContainer*>(this)->find(id);
}

static bool isNumber(const GeData* value) {
  return value && (value->GetType() == DA_LONG || value->GetType() == DA_REAL);
}

Bool BaseContainer::GetBool(Int32 id, Bool fallback) const {
  const GeData* value = find(id);
  return isNumber(value) ? value->GetBool() : fallback;
}

Int32 BaseContainer::GetLong(Int32 id, Int32 fallback) const {
  const GeData* value = find(id);
  return isNumber(value) ? value->GetInt32() : fallback;
}

Float BaseContainer::GetReal(Int32 id, Float fallback) const {
  const GeData* value = find(id);
  return isNumber(value) ? value->GetFloat() : fallback;
}

Vector BaseContainer::GetVector(Int32 id, const Vector& fallback) const {
  const GeData* value = find(id);
  return value && value->GetType() == DA_VECTOR ? value->GetVector() : fallback;
}

Matrix BaseContainer::GetMatrix(Int32 id, const Matrix& fallback) const {
  const GeData* value = find(id);
  return value && value->GetType() == DA_MATRIX ? value->GetMatrix() : fallback;
}

String BaseContainer::GetString(Int32 id, const String& fallback) const {
  const GeData* value = find(id);
  return value && value->GetType() == DA_STRING ? value->GetString() : fallback;
}

BaseList2D* BaseContainer::GetLink(Int32 id, const BaseDocument*) const {
  const GeData* value = find(id);
  return value ? value->GetLink() : nullptr;
}

BaseObject* BaseContainer::GetObjectLink(Int32 id, const BaseDocument* doc) const {
  return dynamic_cast<BaseObject*>(GetLink(id, doc));
}

BaseContainer BaseContainer::GetContainer(Int32 id) const {
  const GeData* value = find(id);
  const BaseContainer* nested = value ? value->GetContainer() : nullptr;
  return nested ? *nested : BaseContainer();
}

BaseContainer* BaseContainer::GetContainerInstance(Int32 id) {
  GeData* value = find(id);
  return value ? value->GetContainerInstance() : nullptr;
}

CustomDataType* BaseContainer::GetCustomDataType(Int32 id, Int32 type) const {
  const GeData* value = find(id);
  return value ? value->GetCustomDataType(type) : nullptr;
}

const GeData* BaseContainer::GetDataPointer(Int32 id) const { return find(id); }

GeData BaseContainer::GetData(Int32 id) const {
  const GeData* value = find(id);
  return value ? *value : GeData();
}

void BaseContainer::SetData(Int32 id, const GeData& value) {
  if (GeData* existing = find(id)) {
    *existing = value;
  } else {
    entries_.emplace_back(id, value);
  }
}

Bool BaseContainer::RemoveData(Int32 id) {
  for (auto it = entries_.begin(); it != entries_.end(); ++it) {
    if (it->first == id) {
      entries_.erase(it);
      return true;
    }
  }
  return false;
}

Int32 BaseContainer::GetIndexId(Int32 index) const {
  return index >= 0 && index < GetCount() ? entries_[index].first : -1;
}

const GeData* BaseContainer::GetIndexData(Int32 index) const {
  return index >= 0 && index < GetCount() ? &entries_[index].second : nullptr;
}

void BaseContainer::MergeInto(BaseContainer& target) const {
  for (const auto& entry : entries_) target.SetData(entry.first, entry.second);
}

bool BaseContainer::operator==(const BaseContainer& other) const {
  if (entries_.size() != other.entries_.size()) return false;
  for (const auto& entry : entries_) {
    const GeData* value = other.find(entry.first);
    if (!value || *value != entry.second) return false;
  }
  return true;
}
