// GrowthScene: what a growth node needs to run without a host: a parameter set with the node's
// defaults, a profile and a path spline linked in as parameters 1006 and 1007, and a run that
// evaluates the node the way a driver does. The splines start empty; tests fill them.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "geometry/PolylineSpline.h"
#include "growth/NodeRun.h"
#include "growth/SplineNode.h"
#include "support/SplineBuilders.h"

struct GrowthRun {
  mv::MeshData mesh;
  mv::PlacementList placements;
  int placed = 0;

  // The groups of one role, in list order.
  std::vector<const mv::PlacementGroup*> groups(int role) const {
    std::vector<const mv::PlacementGroup*> found;
    for (const mv::PlacementGroup& group : placements) {
      if (group.role == role) found.push_back(&group);
    }
    return found;
  }
  // A copy of the placements of the only group of role; fails the test when there is not
  // exactly one.
  std::vector<mv::Placement> only(int role) const {
    const auto found = groups(role);
    EXPECT_EQ(found.size(), 1u) << "groups of role " << role;
    return found.size() == 1 ? found[0]->placements : std::vector<mv::Placement>();
  }
};

// Holds a node in a base that comes before GrowthScene, so that the node is built before the
// scene writes its defaults: struct MyScene : NodeHolder<mv::Branch>, GrowthScene {...}.
template <typename Node>
struct NodeHolder {
  Node node;
};

class GrowthScene {
 public:
  explicit GrowthScene(mv::Simple& node, double size = 1.0) : node_(node) {
    node.initParameters(params, size);
    params.profileNode = &profileNode;
    params.pathNode = &pathNode;
  }
  GrowthScene(const GrowthScene&) = delete;
  GrowthScene& operator=(const GrowthScene&) = delete;

  GrowthRun run(int childCount = 4, double lod = 1.0) {
    GrowthRun result;
    result.placed = mv::runNode(node_, params, childCount, result.mesh, result.placements, lod);
    return result;
  }

  mv::ParameterSetData params;
  mv::PolylineSpline profile, path;
  mv::SplineNode profileNode{&profile, "Profile"}, pathNode{&path, "Path"};

 private:
  mv::Simple& node_;
};

// count points on the straight line from start to end, t running 0 to 1.
inline void makeLine(mv::SplineData& spline, int count, const mv::Vector3& start,
                     const mv::Vector3& end) {
  appendSegment(spline, linePoints(count, start, end));
}
