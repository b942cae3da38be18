#include "ClassicKinds.h"

#include <map>

#include "Attractor.h"
#include "ClassicLeaf.h"
#include "ClassicTree.h"

namespace mv {

namespace {

// One entry per class, keyed by its typeName, for example
//   {"ClassicTree", {[] { return new ClassicTree(); }, pathSetter<ClassicTree>(), {}}},
// The classes of the later classic and growth nodes are added here as they are built.
template <class Kind>
ClassicKind withPath() {
  return {[]() -> Simple* { return new Kind(); },
          [](Simple& simple, const ClassicSpline& path) { static_cast<Kind&>(simple).path = path; },
          {}};
}

const std::map<std::string, ClassicKind>& table() {
  static const std::map<std::string, ClassicKind> kinds = {
      {"Attractor", {[] { return new Attractor(); }, {}, {}}},
      {"ClassicHorn", withPath<ClassicHorn>()},
      {"ClassicLeaf", withPath<ClassicLeaf>()},
      {"ClassicTree", withPath<ClassicTree>()},
  };
  return kinds;
}

}  // namespace

const ClassicKind* ClassicKinds::find(const std::string& typeName) {
  const auto found = table().find(typeName);
  return found != table().end() ? &found->second : nullptr;
}

}  // namespace mv
