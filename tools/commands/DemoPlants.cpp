#include "commands/DemoPlants.h"

#include <cmath>

#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "curves/ParameterSetData.h"
#include "geometry/PolylineSpline.h"
#include "growth/Branch.h"
#include "growth/NodeRun.h"
#include "growth/Phyllotaxis.h"
#include "growth/SplineNode.h"

namespace {

void fill(mv::PolylineSpline& spline, const std::vector<mv::Vector3>& points) {
  const uint32_t n = static_cast<uint32_t>(points.size());
  spline.allocate(n, 1);
  for (uint32_t i = 0; i < n; ++i) spline.setPoint(i, n > 1 ? i / (n - 1.0) : 0.0, points[i]);
  spline.setSegment(0, n, false);
}

// A branch node with its splines, ready to run with the carried values of one placement.
struct BranchRig {
  BranchRig(double radius, const std::vector<mv::Vector3>& pathPoints, double nodes) {
    branch.initParameters(params, 1.0);
    profile.makeCircle(radius, 16);
    fill(path, pathPoints);
    params.profileNode = &profileNode;
    params.pathNode = &pathNode;
    params.setDouble(mv::Branch::nodeNumber, nodes);
  }
  BranchRig(const BranchRig&) = delete;
  BranchRig& operator=(const BranchRig&) = delete;

  // Runs the branch as the instance of placement (or the top one, without data).
  mv::PlacementList run(mv::MeshData& mesh, const mv::Placement* placement, int children) {
    mv::ParameterSetData instance = params;
    if (placement && placement->wantsData) {
      instance.carriedGrowth = placement->carriedGrowth;
      instance.carriedThickness = placement->carriedThickness;
      instance.carriedDensity = placement->carriedDensity;
    }
    mv::PlacementList placements;
    mv::runNode(branch, instance, children, mesh, placements);
    return placements;
  }

  mv::Branch branch;
  mv::ParameterSetData params;
  mv::PolylineSpline profile, path;
  mv::SplineNode profileNode{&profile, "Profile"}, pathNode{&path, "Path"};
};

// A diamond of six points and eight triangles, radius size, about the origin.
mv::MeshData diamond(double size) {
  mv::MeshData mesh;
  mesh.points = {{size, 0, 0},  {0, size, 0}, {-size, 0, 0},
                 {0, -size, 0}, {0, 0, size}, {0, 0, -size}};
  for (uint32_t i = 0; i < 4; ++i) {
    const uint32_t next = (i + 1) % 4;
    mesh.polygons.push_back({i, next, 4, 4, -1});
    mesh.polygons.push_back({next, i, 5, 5, -1});
  }
  mesh.texturePolygons.resize(mesh.polygons.size());
  return mesh;
}

// Merges child, carried by turn and then by the placement, at every placement of role in list,
// in the leaf material; returns how many.
int mergeAt(mv::MeshData& mesh, const mv::PlacementList& list, int role, const mv::MeshData& child,
            const mv::Matrix4& turn = mv::Matrix4()) {
  int count = 0;
  for (const mv::PlacementGroup& group : list) {
    if (group.role != role) continue;
    for (const mv::Placement& p : group.placements) {
      mesh.addMesh(child, turn * p.matrix, kDemoLeaf);
      ++count;
    }
  }
  return count;
}

}  // namespace

DemoCounts buildDemoBranch(mv::MeshData& mesh) {
  BranchRig stem(0.08, {{0, 0, 0}, {0.15, 0, 1.2}, {0, 0, 2.4}}, 12.0);
  BranchRig twig(0.08, {{0, 0, 0}, {0, 0.05, 0.45}, {0, 0, 0.9}}, 0.0);
  mv::MeshData stemMesh;
  const mv::PlacementList placements = stem.run(stemMesh, nullptr, 4);
  mesh.addMesh(stemMesh, mv::Matrix4(), kDemoBark);
  const mv::MeshData marker = diamond(0.04);
  DemoCounts counts;
  for (const mv::PlacementGroup& group : placements) {
    if (group.role != mv::RoleNodes) continue;
    for (const mv::Placement& node : group.placements) {
      mv::MeshData copy;
      twig.run(copy, &node, 2);  // profile and path: the twig ends in no further children
      mesh.addMesh(copy, node.matrix, kDemoBark);
      ++counts.nodes;
    }
  }
  counts.ends = mergeAt(mesh, placements, mv::RoleEnd, marker);
  mesh.finish();
  return counts;
}

DemoCounts buildDemoPhyllotaxis(mv::MeshData& mesh) {
  mv::Phyllotaxis head;
  mv::ParameterSetData params;
  head.initParameters(params, 1.0);
  mv::PolylineSpline profile;
  std::vector<mv::Vector3> dome;
  for (int i = 0; i <= 32; ++i) {
    const double angle = mt::kHalfPi * i / 32.0;
    dome.push_back({std::sin(angle), 0, 0.6 * std::cos(angle)});
  }
  fill(profile, dome);
  mv::SplineNode profileNode(&profile, "Profile");
  params.pathNode = &profileNode;
  mv::PlacementList placements;
  mv::MeshData none;
  mv::runNode(head, params, 2, none, placements);

  BranchRig cone(0.06, {{0, 0, 0}, {0, 0, 0.12}}, 0.0);
  mv::MeshData element;
  cone.run(element, nullptr, 2);
  // With the profile running from the top outward, an element's z axis points into the dome:
  // a half turn about x makes the cone stand out of it.
  DemoCounts counts;
  counts.elements =
      mergeAt(mesh, placements, mv::RoleNodes, element, mv::Matrix4::rotationX(mt::kPi));
  mesh.finish();
  return counts;
}
