#include "host/DescriptionResource.h"

#include <sstream>

Bool DescriptionResource::Parse(const String& text, DescriptionResource& out, String& error) {
  std::istringstream lines(text);
  String line;
  for (int number = 1; std::getline(lines, line); ++number) {
    line = line.substr(0, line.find('#'));
    std::istringstream words(line);
    Parameter parameter;
    String extra;
    if (!(words >> parameter.kind)) continue;  // blank or comment line
    if (!(words >> parameter.id >> parameter.name) || (words >> extra)) {
      error = "line " + std::to_string(number) + " is not \"KIND ID NAME\"";
      return false;
    }
    if (out.FindById(parameter.id) || out.FindByName(parameter.name)) {
      error = "line " + std::to_string(number) + " repeats an id or a name";
      return false;
    }
    out.parameters_.push_back(parameter);
  }
  return true;
}

const DescriptionResource::Parameter* DescriptionResource::FindById(Int32 id) const {
  for (const Parameter& parameter : parameters_) {
    if (parameter.id == id) return &parameter;
  }
  return nullptr;
}

const DescriptionResource::Parameter* DescriptionResource::FindByName(const String& name) const {
  for (const Parameter& parameter : parameters_) {
    if (parameter.name == name) return &parameter;
  }
  return nullptr;
}
