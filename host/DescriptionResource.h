// DescriptionResource: the parameters a class's description names, read from a text file of the
// resource folder (description/NAME.res). One parameter a line: a kind word (BOOL, LONG, REAL,
// VECTOR, MATRIX, STRING, LINK, CONTAINER, or the id of a custom data type), the parameter id
// and its name, separated by blanks; '#' starts a comment. Example: "REAL 1103 growth".
#pragma once

#include <vector>

#include "host/HostTypes.h"

class DescriptionResource {
 public:
  struct Parameter {
    Int32 id = 0;
    String kind;
    String name;
  };

  // False with a message naming the line when the text is not such a list.
  static Bool Parse(const String& text, DescriptionResource& out, String& error);
  const Parameter* FindById(Int32 id) const;
  const Parameter* FindByName(const String& name) const;
  const std::vector<Parameter>& GetParameters() const { return parameters_; }

 private:
  std::vector<Parameter> parameters_;
};
