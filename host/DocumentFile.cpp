#include "host/DocumentFile.h"

#include <fstream>
#include <sstream>

#include "export/AtomicFile.h"
#include "host/BaseDocument.h"
#include "host/DocumentReader.h"
#include "host/DocumentWriter.h"
#include "host/HostConsole.h"

String DocumentFile::ToText(BaseDocument* doc) {
  if (!doc) return String();
  return DocumentWriter().write(doc).dump(1, '\t') + "\n";
}

BaseDocument* DocumentFile::FromText(const String& text, String& error) {
  DocumentReader::Json json = DocumentReader::Json::parse(text, nullptr, false);
  if (json.is_discarded()) {
    error = "it is not valid JSON";
    return nullptr;
  }
  return DocumentReader().read(json, error);
}

Bool DocumentFile::Save(BaseDocument* doc, const Filename& path) {
  if (!doc) return false;
  String text = ToText(doc);
  mv::AtomicFile file(path.GetString());
  if (!file.open()) {
    GePrint("Cannot write the document " + path.GetString());
    return false;
  }
  file.write(text);
  if (!file.commit()) {
    GePrint("Cannot write the document " + path.GetString());
    return false;
  }
  return true;
}

BaseDocument* DocumentFile::Load(const Filename& path) {
  std::ifstream in(path.GetString(), std::ios::binary);
  if (!in) {
    GePrint("Cannot read the document " + path.GetString());
    return nullptr;
  }
  in.seekg(0, std::ios::end);
  std::streamoff size = in.tellg();
  if (size < 0 || static_cast<size_t>(size) > kMaxFileSize) {
    GePrint("The document " + path.GetString() + " is larger than 256 MiB");
    return nullptr;
  }
  in.seekg(0);
  std::ostringstream content;
  content << in.rdbuf();
  String error;
  BaseDocument* doc = FromText(content.str(), error);
  if (!doc) GePrint("Cannot load " + path.GetString() + ": " + error);
  return doc;
}
