#include "host/BaseList2D.h"

#include <unordered_map>

#include "host/CustomDataTypeClass.h"
#include "host/NodeData.h"
#include "host/PluginRegistry.h"

namespace {

std::unordered_map<Int64, BaseList2D*>& liveNodes() {
  static std::unordered_map<Int64, BaseList2D*> nodes;
  return nodes;
}

Int64 nextUniqueId() {
  static Int64 counter = 0;
  return ++counter;
}

}  // namespace

BaseList2D::BaseList2D(Int32 type) : type_(type), uniqueId_(nextUniqueId()) {
  liveNodes()[uniqueId_] = this;
}

BaseList2D::~BaseList2D() {
  if (nodeData_) {
    nodeData_->Free(this);
    delete nodeData_;
  }
  liveNodes().erase(uniqueId_);
}

BaseList2D* BaseList2D::FindByUniqueId(Int64 id) {
  auto it = liveNodes().find(id);
  return it == liveNodes().end() ? nullptr : it->second;
}

Int32 BaseList2D::GetInfo() const {
  const PluginEntry* entry = PluginRegistry::Find(type_);
  return entry ? entry->info : 0;
}

void BaseList2D::SetName(const String& name) {
  if (name == name_) return;
  name_ = name;
  SetDirty(DIRTYFLAGS_DATA);
}

void BaseList2D::SetData(const BaseContainer& data) {
  data.MergeInto(data_);
  SetDirty(DIRTYFLAGS_DATA);
}

Bool BaseList2D::GetParameter(const DescID& id, GeData& value, DESCFLAGS_GET flags) {
  if (id.GetDepth() < 1) return false;
  if (nodeData_) nodeData_->GetDParameter(this, id, value, flags);
  if (flags & DESCFLAGS_GET_PARAM_GET) return true;
  if (id.GetDepth() == 1) {
    const GeData* stored = data_.GetDataPointer(id[0].id);
    if (!stored) return false;
    value = *stored;
    return true;
  }
  const GeData* stored = data_.GetDataPointer(id[0].id);
  CustomDataTypeClass* cls =
      stored ? PluginRegistry::FindCustomDataType(stored->GetType()) : nullptr;
  if (!cls) return false;
  cls->GetParameter(stored->GetCustomDataType(stored->GetType()), id.GetSubId(), value, flags);
  return (flags & DESCFLAGS_GET_PARAM_GET) != 0;
}

Bool BaseList2D::setCustomSubParameter(const DescID& id, const GeData& value,
                                       DESCFLAGS_SET& flags) {
  const GeData* stored = data_.GetDataPointer(id[0].id);
  CustomDataTypeClass* cls =
      stored ? PluginRegistry::FindCustomDataType(stored->GetType()) : nullptr;
  if (!cls) return false;
  cls->SetDParameter(stored->GetCustomDataType(stored->GetType()), id.GetSubId(), value, flags);
  return (flags & DESCFLAGS_SET_PARAM_SET) != 0;
}

Bool BaseList2D::SetParameter(const DescID& id, const GeData& value, DESCFLAGS_SET flags) {
  if (id.GetDepth() < 1) return false;
  if (nodeData_) nodeData_->SetDParameter(this, id, value, flags);
  if (!(flags & DESCFLAGS_SET_PARAM_SET)) {
    if (id.GetDepth() == 1) {
      data_.SetData(id[0].id, value);
    } else if (!setCustomSubParameter(id, value, flags)) {
      return false;
    }
  }
  SetDirty(DIRTYFLAGS_DATA);
  return true;
}

Bool BaseList2D::GetEnabling(const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                             const BaseContainer* itemdesc) {
  return nodeData_ ? nodeData_->GetDEnabling(this, id, value, flags, itemdesc) : true;
}

Bool BaseList2D::Message(Int32 type, void* data) {
  if (type == MSG_UPDATE) SetDirty(DIRTYFLAGS_DATA);
  return nodeData_ ? nodeData_->Message(this, type, data) : true;
}

void BaseList2D::SetDirty(DIRTYFLAGS flags) {
  if (flags & DIRTYFLAGS_MATRIX) ++dirtyMatrix_;
  if (flags & DIRTYFLAGS_DATA) ++dirtyData_;
  if (flags & DIRTYFLAGS_CACHE) ++dirtyCache_;
  if (flags & DIRTYFLAGS_CHILDREN) ++dirtyChildren_;
}

UInt32 BaseList2D::GetDirty(DIRTYFLAGS flags) const {
  UInt32 sum = 0;
  if (flags & DIRTYFLAGS_MATRIX) sum += dirtyMatrix_;
  if (flags & DIRTYFLAGS_DATA) sum += dirtyData_;
  if (flags & DIRTYFLAGS_CACHE) sum += dirtyCache_;
  if (flags & DIRTYFLAGS_CHILDREN) sum += dirtyChildren_;
  return sum;
}

Bool BaseList2D::copyBaseTo(BaseList2D* target, COPYFLAGS flags, AliasTrans* trans) const {
  target->name_ = name_;
  target->data_ = data_;
  if (nodeData_ && target->nodeData_) {
    return nodeData_->CopyTo(target->nodeData_, const_cast<BaseList2D*>(this), target, flags,
                             trans);
  }
  return true;
}
