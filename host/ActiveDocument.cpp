#include "host/ActiveDocument.h"

namespace {

BaseDocument* activeDocument = nullptr;

}  // namespace

BaseDocument* GetActiveDocument() { return activeDocument; }

void SetActiveDocument(BaseDocument* doc) { activeDocument = doc; }
