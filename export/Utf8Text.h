// Utf8Text: names from scene files are bytes in no stated encoding, while glTF wants UTF-8.
// Well-formed UTF-8 passes unchanged; any other byte is read as Latin-1, which is what older
// scene files were written in, so "Eiche\xe4" becomes "Eicheä".
#pragma once

#include <string>

namespace mv {

struct Utf8Text {
  static std::string fromBytes(const std::string& bytes);
};

}  // namespace mv
