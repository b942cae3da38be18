// GeResource: the host's resource folder: strings by number (strings.str, one per line:
// NUMBER "TEXT"), description files and icons. GeLoadString gives a string's text, or an empty
// string when the folder holds none of that number.
#pragma once

#include "host/Filename.h"

class GeResource {
 public:
  // Reads the strings of the folder; false with a console line when strings.str is unreadable
  // or malformed.
  static Bool Init(const Filename& folder);
  static const Filename& GetFolder();
  static String LoadString(Int32 id);
  // Reads a whole file of the folder; false when it cannot be read.
  static Bool ReadFile(const Filename& relative, String& text);
};

inline String GeLoadString(Int32 id) { return GeResource::LoadString(id); }
