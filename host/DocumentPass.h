// DocumentPass: how the host evaluates objects. A pass walks the objects top down:
//  - each object's class first gets CheckDirty (for the whole tree, before anything else);
//  - an object's expression tags run (TagData::Execute) before the object itself;
//  - a generator gets GetVirtualObjects; what it returns becomes its cache, whose objects reach
//    it through GetCacheParent and are evaluated in turn, caches inside caches to a depth of
//    64 (deeper ones are cut with one console line);
//  - a spline plug-in gets GetContour when it or its subtree changed;
//  - children of a generator with the input flag are its inputs and are not evaluated by
//    themselves; a modifier is applied by the spline above it (GetVirtualLineObject).
#pragma once

#include "host/HostTypes.h"

class BaseDocument;
class BaseObject;
class BaseThread;
class HierarchyHelp;

class DocumentPass {
 public:
  static constexpr int kMaxCacheDepth = 64;

  // False when the thread asked to stop.
  static Bool Run(BaseDocument* doc, BaseThread* thread);
  // Evaluates one object (in a document or not) with its subtree and caches.
  static void Evaluate(BaseObject* op, HierarchyHelp& hh);

 private:
  static void checkDirtyTree(BaseObject* first, BaseDocument* doc);
  static void runTags(BaseObject* op, HierarchyHelp& hh);
  static void evaluateList(BaseObject* first, HierarchyHelp& hh, int depth);
  static void evaluate(BaseObject* op, HierarchyHelp& hh, int depth);
  static void buildCache(BaseObject* op, HierarchyHelp& hh, int depth);
};
