#include "host/BaseTag.h"

#include "host/AliasTrans.h"
#include "host/BaseObject.h"
#include "host/LineTag.h"
#include "host/PluginRegistry.h"
#include "host/SegmentTag.h"
#include "host/SelectionTag.h"
#include "host/TextureTag.h"
#include "host/UVWTag.h"

BaseTag* BaseTag::Alloc(Int32 type) {
  const PluginEntry* entry = PluginRegistry::Find(type);
  if (!entry || entry->kind != PluginKind::Tag) return nullptr;
  BaseTag* tag = nullptr;
  switch (type) {
    case Tuvw:
      tag = new UVWTag();
      break;
    case Tline:
      tag = new LineTag();
      break;
    case Tsegment:
      tag = new SegmentTag();
      break;
    case Ttexture:
      tag = new TextureTag();
      break;
    case Tpolygonselection:
    case Tpointselection:
      tag = new SelectionTag(type);
      break;
    default:
      tag = new BaseTag(type);
      break;
  }
  if (!PluginRegistry::AttachNodeData(tag)) {
    delete tag;
    return nullptr;
  }
  return tag;
}

void BaseTag::Free(BaseTag*& tag) {
  if (tag && tag->object_) tag->object_->removeTag(tag);
  delete tag;
  tag = nullptr;
}

BaseTag* BaseTag::GetNext() const { return object_ ? object_->tagAfter(this, 1) : nullptr; }

BaseTag* BaseTag::GetPred() const { return object_ ? object_->tagAfter(this, -1) : nullptr; }

BaseTag* BaseTag::cloneTag() const { return new BaseTag(GetType()); }

BaseTag* BaseTag::GetClone(COPYFLAGS flags, AliasTrans* trans) const {
  BaseTag* clone = cloneTag();
  if (!PluginRegistry::AttachNodeData(clone) || !copyBaseTo(clone, flags, trans)) {
    delete clone;
    return nullptr;
  }
  if (trans) trans->Record(this, clone);
  return clone;
}
