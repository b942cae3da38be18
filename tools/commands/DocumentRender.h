// DocumentRender: morvo render for a document (.morvo): the document is loaded, evaluated, and
// its current state written as OBJ or binary glTF with its materials, UVs and selections.
#pragma once

#include <string>

// The process exit code: 0 when written, 1 when the document cannot be loaded, holds nothing
// to render or cannot be written. With separate, every generator keeps its instances as objects
// of their own, whatever the document says.
int renderDocument(const std::string& input, const std::string& output, bool separate = false);
