// LoadFile: loads a file into the host by its kind. The headless host knows one kind here, a
// window layout (suffix "l4d"): text lines "command ID" naming the commands of a palette, '#'
// starting a comment. The loaded layout replaces the current one.
//
//   # the plant palette
//   command 1011501
//   command 1011969
#pragma once

#include <vector>

#include "host/Filename.h"

// False with a console line when the file cannot be read, is of another kind, or holds a line
// that is not a command; the current layout then stays as it was.
Bool LoadFile(const Filename& name);

// The command ids of the current layout's palette, in file order; empty before any load.
const std::vector<Int32>& CurrentLayoutCommands();
