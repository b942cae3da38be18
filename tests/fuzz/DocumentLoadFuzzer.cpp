// libFuzzer target: any byte string through the document reader, then a save and a second load
// of what was read. A crash, a hang or a memory blow-up is a finding; keep its input as
// tests/data/regress-*.morvo.
#include <cstddef>
#include <cstdint>
#include <string>

#include "host/BaseDocument.h"
#include "host/DocumentFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string error;
  BaseDocument* doc =
      DocumentFile::FromText(std::string(reinterpret_cast<const char*>(data), size), error);
  if (!doc) return 0;
  BaseDocument* again = DocumentFile::FromText(DocumentFile::ToText(doc), error);
  BaseDocument::Free(again);
  BaseDocument::Free(doc);
  return 0;
}
