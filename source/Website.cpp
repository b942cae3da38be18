#include "source/Website.h"

#include "host/GeOpenHTML.h"
#include "host/GeResource.h"
#include "source/CommandState.h"
#include "source/CoreVersion.h"

namespace {

constexpr const char* kPlatform =
#ifdef _WIN32
    "win";
#else
    "mac";  // every other platform gets the pages of the second build
#endif

}  // namespace

String Website::address() {
  const String base = GeLoadString(kBaseString);
  if (base.empty()) return String();
  return base + "?action=docs&pf=c4d&os=" + kPlatform + "&lang" + GeLoadString(kLanguageString) +
         "&ver=" + kCoreVersion;
}

Bool Website::Execute(BaseDocument* /*doc*/) {
  const String url = address();
  if (url.empty()) return false;
  return GeOpenHTML(url);
}

Int32 Website::GetState(BaseDocument* /*doc*/) { return kCommandEnabled; }
