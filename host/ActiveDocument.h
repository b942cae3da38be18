// ActiveDocument: the document the user works in, as menu actions see it; null when none is
// open. The program that opens a document makes it active.
#pragma once

class BaseDocument;

BaseDocument* GetActiveDocument();
// Makes doc (not owned) the active document; null closes it.
void SetActiveDocument(BaseDocument* doc);
