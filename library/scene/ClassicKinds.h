// ClassicKinds: the registry of the classic node classes that the scene loader makes by type
// name ("ClassicTree", "ClassicHorn", ...). A class joins it with one entry in ClassicKinds.cpp:
// how to make one and, where the class has them, how to hand it a path or a point list. A kind
// without an entry is loaded as a plain ClassicSimple group.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "classic/ClassicSpline.h"
#include "core/Simple.h"
#include "core/Vector3.h"

namespace mv {

struct ClassicKind {
  std::function<Simple*()> make;
  // The path of a tree, horn or leaf; empty for kinds without one.
  std::function<void(Simple&, const ClassicSpline&)> setPath;
  // The profile points of a revo, the lattice of a hyperpatch; empty for kinds without them.
  std::function<void(Simple&, const std::vector<Vector3>&)> setPoints;
};

class ClassicKinds {
 public:
  // The entry of typeName, or null while the class is not built.
  static const ClassicKind* find(const std::string& typeName);
};

}  // namespace mv
