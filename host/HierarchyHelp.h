// HierarchyHelp: the context of one evaluation call: the document, the thread and the level of
// detail.
#pragma once

#include "host/HostTypes.h"

class BaseDocument;
class BaseThread;

class HierarchyHelp {
 public:
  HierarchyHelp(BaseDocument* document, BaseThread* thread, Float lod)
      : document_(document), thread_(thread), lod_(lod) {}
  BaseDocument* GetDocument() const { return document_; }
  BaseThread* GetThread() const { return thread_; }
  Float GetLOD() const { return lod_; }

 private:
  BaseDocument* document_;
  BaseThread* thread_;
  Float lod_;
};
