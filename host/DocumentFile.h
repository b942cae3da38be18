// DocumentFile: a document on disk, one JSON file (suffix .morvo) that a person can read and
// write. The format is described in the README ("Documents"); in short:
//   {"format": "morvo document", "version": 1,
//    "document": {"fps", "time", "minTime", "maxTime", "active"},
//    "materials": [{"name", "parameters", "channels": [{"channel", "on", "parameters"}]}],
//    "objects": [{"type", "name", "matrix", "editorMode", "renderMode", "parameters",
//                 "points", "polygons", "segments", "tags": [...], "children": [...]}]}
// Types go by their class's word (its description name, "Ocube", "Obranch", ...) or id;
// parameters by the name the class's description gives them, or their id in decimal. Values:
// numbers, true/false, strings, {"vector": [x, y, z]}, {"matrix": [12 numbers: offset, v1, v2,
// v3]}, {"link": file id or "Top/Child" path or material name}, {"container": {...}} and
// {"data": type word, "level": n, "values": [...]} for custom data, stored through its class's
// own write and read. A node that links name carries "id".
//
// Saving writes a temporary file beside the target and renames it. Loading reads what it can:
// unknown types and unreadable values are skipped with a console line each; a file that is no
// such document, or is broken, fails with one console line and gives null.
#pragma once

#include "host/Filename.h"

class BaseDocument;

class DocumentFile {
 public:
  static constexpr const char* kFormat = "morvo document";
  static constexpr int kVersion = 1;
  static constexpr int kMaxDepth = 256;  // of objects below objects, and of containers
  static constexpr size_t kMaxFileSize = size_t(1) << 28;

  // False with a console line when the file cannot be written.
  static Bool Save(BaseDocument* doc, const Filename& path);
  static BaseDocument* Load(const Filename& path);
  static String ToText(BaseDocument* doc);
  // Null with `error` set when the text is no document.
  static BaseDocument* FromText(const String& text, String& error);
};
