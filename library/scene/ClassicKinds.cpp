#include "ClassicKinds.h"

#include <map>

#include "Attractor.h"

namespace mv {

namespace {

// One entry per class, keyed by its typeName, for example
//   {"ClassicTree", {[] { return new ClassicTree(); }, pathSetter<ClassicTree>(), {}}},
// The classes of the later classic and growth nodes are added here as they are built.
const std::map<std::string, ClassicKind>& table() {
  static const std::map<std::string, ClassicKind> kinds = {
      {"Attractor", {[] { return new Attractor(); }, {}, {}}},
  };
  return kinds;
}

}  // namespace

const ClassicKind* ClassicKinds::find(const std::string& typeName) {
  const auto found = table().find(typeName);
  return found != table().end() ? &found->second : nullptr;
}

}  // namespace mv
