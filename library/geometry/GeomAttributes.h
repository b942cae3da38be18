// GeomAttributes: the attribute record of the geometry stream, in force for the polygons written
// under it; groups push and pop copies of it.
#pragma once

#include <string>

namespace mv {

struct GeomAttributes {
  std::string selectionName;  // selection that polygons written under this record join
  int material = -1;          // material field of each polygon; -1: none
  float values[6] = {1.0f, 1.0f, 1.0f, 1.0f, 1.0f, 1.0f};  // only copied along with the record
  int selectionId = 0;  // a number given in place of a selection name
};

}  // namespace mv
