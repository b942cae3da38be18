#include "host/GeOpenHTML.h"

#include "host/HostConsole.h"

Bool GeOpenHTML(const String& address) {
  if (address.empty()) return false;
  GePrint("Open " + address);
  return true;
}
