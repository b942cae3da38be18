// GeOpenHTML: hands a web address to the user's browser. The headless host has none: the address
// goes to the console as one line, "Open <address>", for the user to follow.
#pragma once

#include "host/HostTypes.h"

// False for an empty address, which no browser can open.
Bool GeOpenHTML(const String& address);
