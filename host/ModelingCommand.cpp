#include "host/ModelingCommand.h"

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/DocumentPass.h"
#include "host/HierarchyHelp.h"
#include "host/SplineObject.h"

namespace {

// Copies the tags of `source` whose type `target` has none of.
void copyMissingTags(const BaseObject* source, BaseObject* target) {
  for (BaseTag* tag = source->GetFirstTag(); tag; tag = tag->GetNext()) {
    if (tag->IsVariable() || target->GetTag(tag->GetType())) continue;
    BaseTag* last = target->GetFirstTag();
    while (last && last->GetNext()) last = last->GetNext();
    if (BaseTag* copy = tag->GetClone(COPYFLAGS_NONE, nullptr)) target->InsertTag(copy, last);
  }
}

BaseObject* plainState(BaseObject* op) {
  if (op->IsInstanceOf(Opolygon)) return op->GetClone(COPYFLAGS_NO_HIERARCHY, nullptr);
  if (SplineObject* spline = op->GetRealSpline()) {
    BaseObject* copy = spline->GetClone(COPYFLAGS_NO_HIERARCHY, nullptr);
    if (copy && spline != op) {
      copy->SetName(op->GetName());
      copy->SetMl(op->GetMl());
      copyMissingTags(op, copy);
    }
    return copy;
  }
  BaseObject* null = BaseObject::Alloc(Onull);
  if (!null) return nullptr;
  null->SetName(op->GetName());
  null->SetMl(op->GetMl());
  copyMissingTags(op, null);
  return null;
}

bool showsChildren(const BaseObject* op) { return !(op->GetInfo() & OBJECT_INPUT); }

bool shown(const BaseObject* child) {
  return !child->GetBit(BIT_CONTROLOBJECT) && !(child->GetInfo() & OBJECT_MODIFIER);
}

}  // namespace

BaseObject* ModelingCommand::CurrentState(BaseObject* op) {
  if (!op) return nullptr;
  BaseObject* result = nullptr;
  if (BaseObject* cache = op->GetCache()) {
    result = CurrentState(cache);
    if (!result) return nullptr;
    result->SetName(op->GetName());
    result->SetMl(op->GetMl() * cache->GetMl());
    copyMissingTags(op, result);
  } else {
    result = plainState(op);
    if (!result) return nullptr;
  }
  if (op->GetEditorMode() != MODE_UNDEF) result->SetEditorMode(op->GetEditorMode());
  if (op->GetRenderMode() != MODE_UNDEF) result->SetRenderMode(op->GetRenderMode());
  if (!showsChildren(op)) return result;
  for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
    if (!shown(child)) continue;
    if (BaseObject* state = CurrentState(child)) state->InsertUnderLast(result);
  }
  return result;
}

Bool SendModelingCommand(Int32 command, ModelingCommandData& data) {
  if (command != MCOMMAND_CURRENTSTATETOOBJECT || !data.op) return false;
  BaseDocument* doc = data.op->GetDocument() ? data.op->GetDocument() : data.doc;
  HierarchyHelp hh(doc, nullptr, doc ? doc->GetLOD() : 1.0);
  DocumentPass::Evaluate(data.op, hh);
  BaseObject* state = ModelingCommand::CurrentState(data.op);
  if (!state) return false;
  delete data.result;
  data.result = new AtomArray();
  data.result->Append(state);
  return true;
}
