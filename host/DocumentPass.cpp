#include "host/DocumentPass.h"

#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/BaseTag.h"
#include "host/BaseThread.h"
#include "host/HierarchyHelp.h"
#include "host/HostConsole.h"
#include "host/ObjectData.h"
#include "host/TagData.h"

Bool DocumentPass::Run(BaseDocument* doc, BaseThread* thread) {
  if (!doc) return false;
  HierarchyHelp hh(doc, thread, doc->GetLOD());
  checkDirtyTree(doc->GetFirstObject(), doc);
  evaluateList(doc->GetFirstObject(), hh, 0);
  return !(thread && thread->TestBreak());
}

void DocumentPass::Evaluate(BaseObject* op, HierarchyHelp& hh) {
  if (!op) return;
  if (ObjectData* data = op->GetObjectData()) data->CheckDirty(op, hh.GetDocument());
  checkDirtyTree(op->GetDown(), hh.GetDocument());
  evaluate(op, hh, 0);
}

void DocumentPass::checkDirtyTree(BaseObject* first, BaseDocument* doc) {
  for (BaseObject* op = first; op; op = op->GetNext()) {
    if (ObjectData* data = op->GetObjectData()) data->CheckDirty(op, doc);
    checkDirtyTree(op->GetDown(), doc);
  }
}

void DocumentPass::runTags(BaseObject* op, HierarchyHelp& hh) {
  for (BaseTag* tag = op->GetFirstTag(); tag; tag = tag->GetNext()) {
    auto* data = dynamic_cast<TagData*>(tag->GetNodeData());
    if (data && (tag->GetInfo() & TAG_EXPRESSION)) {
      data->Execute(tag, hh.GetDocument(), op, hh.GetThread(), 0, 0);
    }
  }
}

void DocumentPass::evaluateList(BaseObject* first, HierarchyHelp& hh, int depth) {
  for (BaseObject* op = first; op; op = op->GetNext()) evaluate(op, hh, depth);
}

void DocumentPass::evaluate(BaseObject* op, HierarchyHelp& hh, int depth) {
  if (hh.GetThread() && hh.GetThread()->TestBreak()) return;
  runTags(op, hh);
  Int32 info = op->GetInfo();
  if (info & OBJECT_GENERATOR) {
    buildCache(op, hh, depth);
  } else if (info & OBJECT_ISSPLINE) {
    op->GetRealSpline();
  }
  if (!(info & OBJECT_INPUT)) evaluateList(op->GetDown(), hh, depth);
}

void DocumentPass::buildCache(BaseObject* op, HierarchyHelp& hh, int depth) {
  ObjectData* data = op->GetObjectData();
  if (!data) return;
  if (depth >= kMaxCacheDepth) {
    GePrint("Evaluation of \"" + op->GetName() + "\" stopped: caches nested deeper than " +
            std::to_string(kMaxCacheDepth) + " levels");
    op->installCache(nullptr);
    return;
  }
  op->installCache(data->GetVirtualObjects(op, &hh));
  if (BaseObject* cache = op->GetCache()) {
    checkDirtyTree(cache, hh.GetDocument());
    evaluateList(cache, hh, depth + 1);
  }
}
