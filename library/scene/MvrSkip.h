// MvrSkip: one thing a scene load passed over, as data for a caller that wants to tell its user
// (the log lines of the load are for debugging and may change).
#pragma once

#include <string>

namespace mv {

struct MvrSkip {
  enum Kind {
    MissingLink,  // object links target, a name that no object of the key frame has
    UnknownType,  // object is of the unknown type target and was loaded as a plain group
    FailedLink,   // the loader could not put object under target (empty target: the top)
  };
  Kind kind = MissingLink;
  std::string object;
  std::string target;
};

}  // namespace mv
