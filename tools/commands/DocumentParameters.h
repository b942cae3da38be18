// DocumentParameters: parameters of a document's objects by name, as `morvo get` and `morvo set`
// address them: PATH.parameter, where PATH names objects from the top of the document down,
// separated by '/', and parameter is a name of the object's description. A curve parameter also
// takes PATH.parameter.points (x:y pairs separated by commas), .minimum, .maximum and
// .expression. Values are text: numbers, true or false, an object path for a link.
#pragma once

#include <string>

#include "host/HostTypes.h"

class BaseDocument;
class BaseObject;

struct ParameterAddress {
  BaseObject* object = nullptr;
  Int32 id = 0;
  String kind;  // the description's kind word: REAL, LONG, BOOL, LINK, STRING or a data type id
  String name;
  String part;  // for a curve: points, minimum, maximum, expression, or empty for all of it
};

// The object at path ("Tree/Branch"), or null.
BaseObject* findObject(BaseDocument* document, const std::string& path);
// The path of an object in its document, names joined by '/'.
std::string objectPath(BaseObject* object);
// Resolves PATH.parameter[.part]; false with a message in error.
bool resolveParameter(BaseDocument* document, const std::string& text, ParameterAddress& address,
                      std::string& error);
// The value as text; a whole curve gives one line per part.
std::string readParameter(BaseDocument* document, const ParameterAddress& address);
// Parses and stores the value; false with a message in error, the object unchanged.
bool writeParameter(BaseDocument* document, const ParameterAddress& address,
                    const std::string& value, std::string& error);
