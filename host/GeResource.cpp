#include "host/GeResource.h"

#include <fstream>
#include <map>
#include <sstream>

#include "host/HostConsole.h"

namespace {

struct Resources {
  Filename folder;
  std::map<Int32, String> strings;
};

Resources& resources() {
  static Resources state;
  return state;
}

// string-line := NUMBER '"' text '"', where text may hold \" and \\ .
bool parseStringLine(const String& line, Int32& id, String& text) {
  std::istringstream in(line);
  if (!(in >> id)) return false;
  in >> std::ws;
  if (in.get() != '"') return false;
  text.clear();
  for (int c = in.get(); c != EOF; c = in.get()) {
    if (c == '"') {
      String rest;
      in >> rest;
      return rest.empty();
    }
    if (c == '\\') c = in.get();
    if (c == EOF) return false;
    text.push_back(static_cast<char>(c));
  }
  return false;
}

}  // namespace

Bool GeResource::ReadFile(const Filename& relative, String& text) {
  std::ifstream in((resources().folder + relative).GetString(), std::ios::binary);
  if (!in) return false;
  std::ostringstream content;
  content << in.rdbuf();
  text = content.str();
  return true;
}

Bool GeResource::Init(const Filename& folder) {
  resources().folder = folder;
  resources().strings.clear();
  String text;
  if (!ReadFile(Filename("strings.str"), text)) {
    GePrint("Cannot read the resource strings of " + folder.GetString());
    return false;
  }
  std::istringstream lines(text);
  String line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (line.find_first_not_of(" \t\r") == String::npos || line[0] == '#') continue;
    Int32 id = 0;
    String value;
    if (!parseStringLine(line, id, value)) {
      GePrint("Resource strings: line " + std::to_string(number) + " is not NUMBER \"TEXT\"");
      return false;
    }
    resources().strings[id] = value;
  }
  return true;
}

const Filename& GeResource::GetFolder() { return resources().folder; }

String GeResource::LoadString(Int32 id) {
  auto it = resources().strings.find(id);
  return it == resources().strings.end() ? String() : it->second;
}
