#include "commands/ModifierDemos.h"

#include <cmath>
#include <vector>

#include "commands/DemoPlants.h"
#include "core/ChildRole.h"
#include "core/MathConstants.h"
#include "curves/ParameterSetData.h"
#include "geometry/CurvatureSpline.h"
#include "geometry/PolylineSpline.h"
#include "growth/Branch.h"
#include "growth/Hydra.h"
#include "growth/NodeRun.h"
#include "growth/SplineNode.h"
#include "growth/Tropism.h"

namespace {

// A tube of the Branch defaults (thickness tapering to the end) of the given radius along path,
// merged into mesh under matrix.
void sweepTube(mv::Spline& path, double radius, mv::MeshData& mesh, int material,
               const mv::Matrix4& matrix = mv::Matrix4()) {
  mv::Branch branch;
  mv::ParameterSetData params;
  branch.initParameters(params, 1.0);
  params.setDouble(mv::Branch::nodeNumber, 0.0);
  mv::PolylineSpline profile;
  profile.makeCircle(radius, 12);
  mv::SplineNode profileNode(&profile, "Profile"), pathNode(&path, "Path");
  params.profileNode = &profileNode;
  params.pathNode = &pathNode;
  mv::MeshData tube;
  mv::PlacementList placements;
  mv::runNode(branch, params, 2, tube, placements);
  mesh.addMesh(tube, matrix, material);
}

mv::PolylineSpline straightPath(int count, const mv::Vector3& start, const mv::Vector3& end) {
  mv::PolylineSpline path;
  path.allocate(count, 1);
  for (int i = 0; i < count; ++i) {
    const double t = i / (count - 1.0);
    path.setPoint(i, t, start + (end - start) * t);
  }
  path.setSegment(0, count, false);
  return path;
}

// A short cone along +z at every element that hydra places with params.
int conesAtElements(mv::Hydra& hydra, mv::ParameterSetData& params, mv::MeshData& mesh) {
  mv::MeshData none;
  mv::PlacementList placements;
  mv::runNode(hydra, params, 1, none, placements);
  mv::PolylineSpline stalk = straightPath(2, {0, 0, 0}, {0, 0, 0.3});
  mv::MeshData cone;
  sweepTube(stalk, 0.06, cone, kDemoLeaf);
  int count = 0;
  for (const mv::PlacementGroup& group : placements) {
    if (group.role != mv::RoleNodes) continue;
    for (const mv::Placement& element : group.placements) {
      mesh.addMesh(cone, element.matrix, kDemoLeaf);
      ++count;
    }
  }
  return count;
}

mv::CurveParam constant(double value) { return mv::CurveParam(-10, 10, value, value, "id"); }

}  // namespace

std::string buildDemoHydra(mv::MeshData& mesh) {
  mv::Hydra hydra;
  mv::ParameterSetData ring;
  hydra.initParameters(ring, 1.0);
  ring.setDouble(mv::Hydra::number, 7.5);
  ring.setCurve(mv::Hydra::hydraTilt, constant(0.4));
  const int ringCount = conesAtElements(hydra, ring, mesh);
  mv::ParameterSetData star;
  hydra.initParameters(star, 0.4);
  star.setInt(mv::Hydra::hydraMode, mv::Hydra::ModeStar);
  star.setDouble(mv::Hydra::number, 12);
  star.setCurve(mv::Hydra::hydraTilt, mv::CurveParam(-2, 2, -mt::kHalfPi, mt::kHalfPi, "id"));
  star.setCurve(mv::Hydra::scale, constant(0.5));
  const int starCount = conesAtElements(hydra, star, mesh);
  mesh.finish();
  return std::to_string(ringCount) + " cones on the ring, " + std::to_string(starCount) +
         " on the star";
}

std::string buildDemoTropism(mv::MeshData& mesh) {
  mv::Tropism tropism;
  for (int i = -3; i <= 3; ++i) {
    mv::ParameterSetData params;
    tropism.initParameters(params, 1.0);
    params.setInt(mv::Tropism::tropismAxis, 0);  // +x
    params.setCurve(mv::Tropism::tropismStrength, constant(0.3 * i));
    mv::PolylineSpline stem = straightPath(40, {0.4 * i, 0, 0}, {0.4 * i, 0, 2.4});
    tropism.deformSpline(params, stem, mv::Matrix4());
    sweepTube(stem, 0.06, mesh, kDemoBark);
  }
  mesh.finish();
  return "7 stems bent with strengths -0.9 to 0.9";
}

std::string buildDemoCurvature(mv::MeshData& mesh) {
  const struct {
    double x;
    mv::CurveParam turnX, turnZ;
  } walks[] = {{-1.5, constant(5), constant(0)},
               {0.0, constant(8), constant(10)},
               {1.5, mv::CurveParam(-20, 20, 0, 16, "id"), constant(0)}};
  for (const auto& walk : walks) {
    mv::CurvatureSpline spline;
    mv::ParameterSetData params;
    spline.initParameters(params, 1.0);
    params.setDouble(mv::CurvatureSpline::curvSteps, 60);
    params.setDouble(mv::CurvatureSpline::curvLength, 0.5);
    params.setCurve(mv::CurvatureSpline::curv_rota_x, walk.turnX);
    params.setCurve(mv::CurvatureSpline::curv_rota_z, walk.turnZ);
    spline.computeFrames(params, 1.0);
    sweepTube(spline, 0.06, mesh, kDemoBark, mv::Matrix4::translation({walk.x, 0, 0}));
  }
  mesh.finish();
  return "an arc, a helix and a curl";
}
