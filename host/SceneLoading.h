// SceneLoading: opening a file as a document. A document file (.morvo) is read by
// DocumentFile; any other file is offered to the registered scene loaders in the order of
// their ids: each gets the first 1024 bytes (Identify), and the first that accepts loads the
// file into a new document (Load) with its settings node, made and initialised for the call.
#pragma once

#include "host/Filename.h"

class BaseDocument;
class BaseThread;

// The loaded document, the caller's; null with a console line when no loader takes the file
// or the load fails.
BaseDocument* LoadDocument(const Filename& name, Int32 filterflags, BaseThread* thread);
