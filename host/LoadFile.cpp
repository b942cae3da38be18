#include "host/LoadFile.h"

#include <fstream>
#include <sstream>
#include <utility>

#include "host/HostConsole.h"

namespace {

std::vector<Int32> currentLayout;

// line := "command" integer | comment | blank
Bool parseLayoutLine(const String& line, std::vector<Int32>& commands) {
  std::istringstream words(line);
  String word;
  if (!(words >> word) || word[0] == '#') return true;
  long long id = 0;
  String rest;
  if (word != "command" || !(words >> id) || (words >> rest) || id <= 0 || id > 0x7fffffff) {
    return false;
  }
  commands.push_back(Int32(id));
  return true;
}

}  // namespace

Bool LoadFile(const Filename& name) {
  const String& path = name.GetString();
  if (!name.CheckSuffix("l4d")) {
    GePrint("Cannot load " + path + ": not a window layout");
    return false;
  }
  std::ifstream in(path);
  if (!in) {
    GePrint("Cannot load " + path + ": the file cannot be read");
    return false;
  }
  std::vector<Int32> commands;
  String line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!parseLayoutLine(line, commands)) {
      GePrint("Cannot load " + path + ": line " + std::to_string(number) + " is no command");
      return false;
    }
  }
  currentLayout = std::move(commands);
  return true;
}

const std::vector<Int32>& CurrentLayoutCommands() { return currentLayout; }
