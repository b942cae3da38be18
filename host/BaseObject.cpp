#include "host/BaseObject.h"

#include <algorithm>

#include "host/AliasTrans.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/HairObject.h"
#include "host/HierarchyHelp.h"
#include "host/LineObject.h"
#include "host/ObjectData.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "host/SplineObject.h"
#include "host/VariableTag.h"

BaseObject::~BaseObject() {
  for (BaseTag* tag : tags_) {
    tag->object_ = nullptr;
    delete tag;
  }
  delete cache_;
  delete lineCache_;
  delete contour_;
}

BaseObject* BaseObject::Alloc(Int32 type) {
  const PluginEntry* entry = PluginRegistry::Find(type);
  if (!entry || entry->kind != PluginKind::Object) return nullptr;
  BaseObject* op = nullptr;
  switch (type) {
    case Opolygon:
      op = new PolygonObject();
      break;
    case Ospline:
      op = new SplineObject();
      break;
    case Oline:
      op = new LineObject();
      break;
    case Offd:
      op = new PointObject(Offd);
      break;
    case Ohair:
      op = new HairObject();
      break;
    default:
      op = new BaseObject(type);
      break;
  }
  if (!PluginRegistry::AttachNodeData(op)) {
    delete op;
    return nullptr;
  }
  return op;
}

void BaseObject::Free(BaseObject*& op) {
  if (!op) return;
  op->Remove();
  delete op;
  op = nullptr;
}

BaseObject* BaseObject::cloneObject() const { return new BaseObject(GetType()); }

BaseObject* BaseObject::GetClone(COPYFLAGS flags, AliasTrans* trans) const {
  BaseObject* clone = cloneObject();
  if (!PluginRegistry::AttachNodeData(clone) || !copyBaseTo(clone, flags, trans)) {
    delete clone;
    return nullptr;
  }
  clone->ml_ = ml_;
  clone->editorMode_ = editorMode_;
  clone->renderMode_ = renderMode_;
  for (const BaseTag* tag : tags_) {
    if (BaseTag* copy = tag->GetClone(flags, trans))
      clone->InsertTag(copy, clone->tags_.empty() ? nullptr : clone->tags_.back());
  }
  if (trans) trans->Record(this, clone);
  if (!(flags & COPYFLAGS_NO_HIERARCHY)) {
    for (BaseObject* child = GetDown(); child; child = child->GetNext()) {
      if (BaseObject* copy = child->GetClone(flags, trans)) copy->InsertUnderLast(clone);
    }
  }
  return clone;
}

void BaseObject::SetMl(const Matrix& m) {
  ml_ = m;
  SetDirty(DIRTYFLAGS_MATRIX);
}

Matrix BaseObject::GetUpMg() const {
  if (BaseObject* up = GetUp()) return up->GetMg();
  if (cacheParent_) return cacheParent_->GetMg();
  return Matrix();
}

Matrix BaseObject::GetMg() const { return GetUpMg() * ml_; }

void BaseObject::SetMg(const Matrix& m) { SetMl(Invert(GetUpMg()) * m); }

Vector BaseObject::GetRelScale() const {
  return {ml_.v1.GetLength(), ml_.v2.GetLength(), ml_.v3.GetLength()};
}

Vector BaseObject::GetRelRot() const { return MatrixToHPB(ml_); }

void BaseObject::SetRelPos(const Vector& position) {
  Matrix m = ml_;
  m.off = position;
  SetMl(m);
}

void BaseObject::SetRelScale(const Vector& scale) {
  Matrix rotation = HPBToMatrix(GetRelRot());
  SetMl(Matrix(ml_.off, rotation.v1 * scale.x, rotation.v2 * scale.y, rotation.v3 * scale.z));
}

void BaseObject::SetRelRot(const Vector& hpb) {
  Vector scale = GetRelScale();
  Matrix rotation = HPBToMatrix(hpb);
  SetMl(Matrix(ml_.off, rotation.v1 * scale.x, rotation.v2 * scale.y, rotation.v3 * scale.z));
}

void BaseObject::SetEditorMode(Int32 mode) {
  editorMode_ = mode;
  SetDirty(DIRTYFLAGS_DATA);
}

void BaseObject::SetRenderMode(Int32 mode) {
  renderMode_ = mode;
  SetDirty(DIRTYFLAGS_DATA);
}

Bool BaseObject::SetPhong(Bool on, Bool angleLimit, Float angle) {
  if (!on) {
    KillTag(Tphong);
    return true;
  }
  BaseTag* tag = GetTag(Tphong);
  if (!tag) tag = MakeTag(Tphong);
  if (!tag) return false;
  tag->GetDataInstance()->SetBool(1001, angleLimit);
  tag->GetDataInstance()->SetReal(1002, angle);
  tag->SetDirty(DIRTYFLAGS_DATA);
  return true;
}

BaseTag* BaseObject::GetTag(Int32 type, Int32 nr) const {
  for (BaseTag* tag : tags_) {
    if (tag->GetType() == type && nr-- == 0) return tag;
  }
  return nullptr;
}

BaseTag* BaseObject::MakeTag(Int32 type, BaseTag* pred) {
  BaseTag* tag = BaseTag::Alloc(type);
  if (tag) InsertTag(tag, pred);
  return tag;
}

VariableTag* BaseObject::MakeVariableTag(Int32 type, Int32 count, BaseTag* pred) {
  BaseTag* tag = BaseTag::Alloc(type);
  auto* variable = dynamic_cast<VariableTag*>(tag);
  if (!variable || !variable->Resize(count)) {
    delete tag;
    return nullptr;
  }
  InsertTag(variable, pred);
  return variable;
}

void BaseObject::InsertTag(BaseTag* tag, BaseTag* pred) {
  if (!tag) return;
  if (tag->object_) tag->object_->removeTag(tag);
  auto at = std::find(tags_.begin(), tags_.end(), pred);
  tags_.insert(at == tags_.end() ? tags_.begin() : at + 1, tag);
  tag->object_ = this;
  SetDirty(DIRTYFLAGS_DATA);
}

void BaseObject::removeTag(BaseTag* tag) {
  tags_.erase(std::remove(tags_.begin(), tags_.end(), tag), tags_.end());
  tag->object_ = nullptr;
  SetDirty(DIRTYFLAGS_DATA);
}

BaseTag* BaseObject::tagAfter(const BaseTag* tag, int step) const {
  auto it = std::find(tags_.begin(), tags_.end(), tag);
  if (it == tags_.end()) return nullptr;
  long index = (it - tags_.begin()) + step;
  return index >= 0 && index < static_cast<long>(tags_.size()) ? tags_[index] : nullptr;
}

void BaseObject::KillTag(Int32 type, Int32 nr) {
  BaseTag* tag = GetTag(type, nr);
  BaseTag::Free(tag);
}

static bool matchesFilter(Int32 filter, bool property) {
  return filter < 0 || (filter != 0) == property;
}

Bool BaseObject::CopyTagsTo(BaseObject* dest, Int32 visible, Int32 variable, Int32 hierarchical,
                            AliasTrans* trans) const {
  if (!dest) return false;
  for (const BaseTag* tag : tags_) {
    Int32 info = tag->GetInfo();
    if (!matchesFilter(visible, info & TAG_VISIBLE) ||
        !matchesFilter(variable, tag->IsVariable()) ||
        !matchesFilter(hierarchical, info & TAG_HIERARCHICAL)) {
      continue;
    }
    BaseTag* copy = tag->GetClone(COPYFLAGS_NONE, trans);
    if (!copy) return false;
    dest->InsertTag(copy, dest->tags_.empty() ? nullptr : dest->tags_.back());
  }
  return true;
}

Bool BaseObject::CheckCache(HierarchyHelp*) const { return cache_ == nullptr; }

Bool BaseObject::IsDirty(DIRTYFLAGS flags) const {
  if (!evaluated_) return true;
  if ((flags & DIRTYFLAGS_DATA) && GetDirty(DIRTYFLAGS_DATA) != evaluatedData_) return true;
  return (flags & DIRTYFLAGS_MATRIX) && GetDirty(DIRTYFLAGS_MATRIX) != evaluatedMatrix_;
}

void BaseObject::NewDependenceList() { pendingDependences_.clear(); }

void BaseObject::AddDependence(HierarchyHelp*, BaseObject* op) {
  if (!op) return;
  pendingDependences_.push_back(
      {op->GetUniqueId(), op->GetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX | DIRTYFLAGS_CACHE)});
}

Bool BaseObject::CompareDependenceList() const { return pendingDependences_ == builtDependences_; }

void BaseObject::TouchDependenceList() {
  for (const Dependence& dependence : pendingDependences_) {
    if (auto* op = dynamic_cast<BaseObject*>(FindByUniqueId(dependence.id))) op->Touch();
  }
}

Bool BaseObject::childChanged(BaseObject* child) {
  UInt64 stamp = child->GetHierarchyStamp();
  auto [it, inserted] = childStamps_.emplace(child->GetUniqueId(), stamp);
  bool changed = inserted || it->second != stamp;
  it->second = stamp;
  return changed;
}

BaseObject* BaseObject::GetHierarchyClone(HierarchyHelp*, BaseObject* child, HIERARCHYCLONEFLAGS,
                                          Bool* dirty, AliasTrans* trans) {
  if (!child) return nullptr;
  bool changed = childChanged(child);
  child->Touch();
  if (dirty) {
    if (changed) *dirty = true;
    return nullptr;
  }
  return child->GetClone(COPYFLAGS_NONE, trans);
}

LineObject* BaseObject::GetVirtualLineObject(BaseObject* child, HierarchyHelp* hh, const Matrix& ml,
                                             Bool, Bool, Matrix* mres, Bool* dirty) {
  if (!child || !(child->GetInfo() & OBJECT_ISSPLINE)) return nullptr;
  if (childChanged(child) && dirty) *dirty = true;
  child->Touch();
  if (mres) *mres = ml;
  return child->lineObjectFor(hh);
}

LineObject* BaseObject::lineObjectFor(HierarchyHelp* hh) {
  UInt64 stamp = GetHierarchyStamp();
  if (lineCache_ && stamp == lineCacheStamp_) return lineCache_;
  delete lineCache_;
  lineCache_ = nullptr;
  SplineObject* spline = GetRealSpline();
  BaseDocument* doc = hh ? hh->GetDocument() : GetDocument();
  Float lod = hh ? hh->GetLOD() : 1.0;
  BaseThread* thread = hh ? hh->GetThread() : nullptr;
  lineCache_ = spline ? spline->GetLineObject(doc, lod, thread) : nullptr;
  lineCacheStamp_ = stamp;
  for (BaseObject* child = GetDown(); child && lineCache_; child = child->GetNext()) {
    ObjectData* modifier = child->GetObjectData();
    if (!modifier || !(child->GetInfo() & OBJECT_MODIFIER)) continue;
    child->Touch();
    modifier->ModifyObject(child, doc, lineCache_, GetMg(), child->GetMg(), lod, 0, thread);
  }
  return lineCache_;
}

SplineObject* BaseObject::GetRealSpline() {
  ObjectData* data = GetObjectData();
  if (!data || !(GetInfo() & OBJECT_ISSPLINE)) return nullptr;
  UInt64 stamp = GetHierarchyStamp();
  if (contour_ && stamp == contourStamp_) return contour_;
  delete contour_;
  contour_ = data->GetContour(this, GetDocument(), 1.0, nullptr);
  contourStamp_ = stamp;
  return contour_;
}

ObjectData* BaseObject::GetObjectData() const { return dynamic_cast<ObjectData*>(GetNodeData()); }

static UInt64 mix(UInt64 hash, UInt64 value) {
  return (hash ^ value) * 0x100000001b3ull + (hash >> 29);
}

UInt64 BaseObject::GetHierarchyStamp() const {
  UInt64 hash = mix(0xcbf29ce484222325ull, static_cast<UInt64>(GetUniqueId()));
  hash = mix(hash, GetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX | DIRTYFLAGS_CHILDREN));
  for (const BaseTag* tag : tags_) {
    hash = mix(mix(hash, static_cast<UInt64>(tag->GetUniqueId())), tag->GetDirty(DIRTYFLAGS_DATA));
  }
  for (const BaseObject* child = GetDown(); child; child = child->GetNext()) {
    hash = mix(hash, child->GetHierarchyStamp());
  }
  return hash;
}

void BaseObject::setCacheParentTree(BaseObject* op, BaseObject* generator) {
  for (; op; op = op->GetNext()) {
    op->cacheParent_ = generator;
    setCacheParentTree(op->GetDown(), generator);
  }
}

void BaseObject::installCache(BaseObject* result) {
  if (result != cache_) {
    delete cache_;
    cache_ = result;
    if (result) {
      result->Remove();
      setCacheParentTree(result, this);
    }
    SetDirty(DIRTYFLAGS_CACHE);
  }
  markEvaluated();
}

void BaseObject::markEvaluated() {
  evaluated_ = true;
  evaluatedData_ = GetDirty(DIRTYFLAGS_DATA);
  evaluatedMatrix_ = GetDirty(DIRTYFLAGS_MATRIX);
  builtDependences_ = pendingDependences_;
}
