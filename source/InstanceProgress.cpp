#include "source/InstanceProgress.h"

#include "host/GeResource.h"
#include "host/HostConsole.h"

InstanceProgress* InstanceProgress::current = nullptr;

namespace {

constexpr Int32 kStatusString = 10025;

// The resource text with the object's name in place of its '#'.
String statusText(const String& name) {
  String text = GeLoadString(kStatusString);
  const size_t mark = text.find('#');
  return mark == String::npos ? text + name : text.replace(mark, 1, name);
}

}  // namespace

void InstanceProgress::begin(const String& objectName, Int32 placementTotal) {
  if (depth == 0) {
    total = placementTotal;
    done = 0;
    startTime = GeGetTimer();
    shown = false;
    name = objectName;
  }
  ++depth;
}

void InstanceProgress::step() {
  if (depth != 1) return;
  ++done;
  if (!shown && GeGetTimer() - startTime > kDelay) {
    shown = true;
    StatusSetText(statusText(name));
  }
  if (shown && total > 0) StatusSetBar(done * 100 / total);
}

void InstanceProgress::end() {
  --depth;
  if (depth < 1 && shown) StatusClear();
}
