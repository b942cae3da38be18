#include "host/BaseDocument.h"

#include "host/BaseMaterial.h"
#include "host/BaseObject.h"
#include "host/DocumentPass.h"

BaseDocument::BaseDocument() : BaseList2D(0) {}

BaseDocument::~BaseDocument() {
  // Children of the heads go first, while the document they point at still stands.
  while (objects_.GetDown()) delete objects_.GetDown();
  while (materials_.GetDown()) delete materials_.GetDown();
}

void BaseDocument::Free(BaseDocument*& doc) {
  delete doc;
  doc = nullptr;
}

BaseObject* BaseDocument::GetFirstObject() const {
  return static_cast<BaseObject*>(objects_.GetDown());
}

void BaseDocument::InsertObject(BaseObject* op, BaseObject* parent, BaseObject* pred) {
  if (!op) return;
  if (pred) {
    op->InsertAfter(pred);
  } else if (parent) {
    op->InsertUnder(parent);
  } else {
    op->InsertUnder(&objects_);
  }
}

BaseMaterial* BaseDocument::GetFirstMaterial() const {
  return static_cast<BaseMaterial*>(materials_.GetDown());
}

void BaseDocument::InsertMaterial(BaseMaterial* material, BaseMaterial* pred) {
  if (!material) return;
  if (pred) {
    material->InsertAfter(pred);
  } else {
    material->InsertUnder(&materials_);
  }
}

static BaseObject* searchTree(BaseObject* op, const String& name) {
  for (; op; op = op->GetNext()) {
    if (op->GetName() == name) return op;
    if (BaseObject* found = searchTree(op->GetDown(), name)) return found;
  }
  return nullptr;
}

BaseObject* BaseDocument::SearchObject(const String& name) const {
  return searchTree(GetFirstObject(), name);
}

BaseMaterial* BaseDocument::SearchMaterial(const String& name) const {
  for (BaseMaterial* material = GetFirstMaterial(); material; material = material->GetNext()) {
    if (material->GetName() == name) return material;
  }
  return nullptr;
}

BaseObject* BaseDocument::GetActiveObject() const {
  auto* op = dynamic_cast<BaseObject*>(FindByUniqueId(activeObject_));
  return op && op->GetDocument() == this ? op : nullptr;
}

void BaseDocument::SetActiveObject(BaseObject* op) { activeObject_ = op ? op->GetUniqueId() : 0; }

Bool BaseDocument::ExecutePasses(BaseThread* thread, Bool, Bool, Bool, Int32) {
  return DocumentPass::Run(this, thread);
}
