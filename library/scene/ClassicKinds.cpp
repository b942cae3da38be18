#include "scene/ClassicKinds.h"

#include <map>

#include "classic/Attractor.h"
#include "classic/ClassicHydra.h"
#include "classic/ClassicHyperpatch.h"
#include "classic/ClassicLeaf.h"
#include "classic/ClassicPhiball.h"
#include "classic/ClassicPrune.h"
#include "classic/ClassicRevo.h"
#include "classic/ClassicTree.h"
#include "classic/ClassicWreath.h"
#include "core/MessageSink.h"
#include "growth/Variation.h"

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

template <class Kind>
ClassicKind plain() {
  return {[]() -> Simple* { return new Kind(); }, {}, {}};
}

// A profile of fewer than two points makes no surface.
void setRevoPoints(Simple& simple, const std::vector<Vector3>& points) {
  if (points.size() < 2) {
    messageSink.warning("A Revo needs at least two profile points; it has " +
                        std::to_string(points.size()) + " and makes no surface");
  }
  static_cast<ClassicRevo&>(simple).points = points;
}

// A lattice of another size than 2, 3, 4 or 5 points per axis leaves the mesh as it is.
void setLatticePoints(Simple& simple, const std::vector<Vector3>& points) {
  if (ClassicHyperpatch::latticeSide(points.size()) == 0) {
    messageSink.warning("A Hyperpatch needs 8, 27, 64 or 125 control points; it has " +
                        std::to_string(points.size()) + " and leaves its objects undeformed");
  }
  static_cast<ClassicHyperpatch&>(simple).points = points;
}

const std::map<std::string, ClassicKind>& table() {
  static const std::map<std::string, ClassicKind> kinds = {
      {"Attractor", {[] { return new Attractor(); }, {}, {}}},
      {"ClassicHorn", withPath<ClassicHorn>()},
      {"ClassicLeaf", withPath<ClassicLeaf>()},
      {"ClassicTree", withPath<ClassicTree>()},
      {"ClassicHydra", plain<ClassicHydra>()},
      {"ClassicWreath", plain<ClassicWreath>()},
      {"ClassicPhiball", plain<ClassicPhiball>()},
      {"ClassicPrune", plain<ClassicPrune>()},
      {"ClassicRevo", {[] { return new ClassicRevo(); }, {}, setRevoPoints}},
      {"ClassicHyperpatch", {[] { return new ClassicHyperpatch(); }, {}, setLatticePoints}},
      {"Variation", plain<Variation>()},
  };
  return kinds;
}

}  // namespace

const ClassicKind* ClassicKinds::find(const std::string& typeName) {
  const auto found = table().find(typeName);
  return found != table().end() ? &found->second : nullptr;
}

}  // namespace mv
