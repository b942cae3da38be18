// The growth nodes on large inputs: a branch of 1 000 path points and 1 000 nodes swept into a
// tube, and a phyllotaxis head of 10 000 elements.
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/MeshData.h"
#include "geometry/PolylineSpline.h"
#include "growth/Branch.h"
#include "growth/NodeRun.h"
#include "growth/Phyllotaxis.h"
#include "growth/SplineNode.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// One open segment of count points, t running 0 to 1.
void fill(mv::PolylineSpline& spline, int count, mv::Vector3 (*at)(double)) {
  spline.allocate(count, 1);
  for (int i = 0; i < count; ++i) {
    const double t = i / (count - 1.0);
    spline.setPoint(i, t, at(t));
  }
  spline.setSegment(0, count, false);
}

mv::Vector3 helix(double t) { return {std::cos(12 * kPi * t), std::sin(12 * kPi * t), 20 * t}; }

mv::Vector3 quarterCircle(double t) { return {std::sin(t * kPi / 2), 0, std::cos(t * kPi / 2)}; }

int placementCount(const mv::PlacementList& list, int role) {
  int count = 0;
  for (const mv::PlacementGroup& group : list) {
    if (group.role == role) count += static_cast<int>(group.placements.size());
  }
  return count;
}

void reportRates(benchmark::State& state, double elements, double polygons) {
  state.counters["elements/s"] = benchmark::Counter(elements, benchmark::Counter::kIsRate);
  state.counters["polygons/s"] = benchmark::Counter(polygons, benchmark::Counter::kIsRate);
}

void BM_BranchThousandPointsThousandNodes(benchmark::State& state) {
  mv::Branch branch;
  mv::ParameterSetData params;
  branch.initParameters(params, 1.0);
  mv::PolylineSpline profile, path;
  profile.makeCircle(0.2, 12);
  fill(path, 1000, helix);
  mv::SplineNode profileNode(&profile), pathNode(&path);
  params.profileNode = &profileNode;
  params.pathNode = &pathNode;
  params.setDouble(mv::Branch::nodeNumber, 1000.0);
  double elements = 0, polygons = 0;
  for (auto _ : state) {
    mv::MeshData mesh;
    mv::PlacementList placements;
    mv::runNode(branch, params, 4, mesh, placements);
    elements += placementCount(placements, mv::RoleNodes);
    polygons += mesh.polygons.size();
  }
  reportRates(state, elements, polygons);
}
BENCHMARK(BM_BranchThousandPointsThousandNodes)->Unit(benchmark::kMillisecond);

void BM_PhyllotaxisTenThousandElements(benchmark::State& state) {
  mv::Phyllotaxis phyllotaxis;
  mv::ParameterSetData params;
  phyllotaxis.initParameters(params, 1.0);
  mv::PolylineSpline profile;
  fill(profile, 200, quarterCircle);
  mv::SplineNode profileNode(&profile);
  params.pathNode = &profileNode;
  params.setDouble(mv::Phyllotaxis::number, 10000.0);
  double elements = 0;
  for (auto _ : state) {
    mv::MeshData mesh;
    mv::PlacementList placements;
    mv::runNode(phyllotaxis, params, 2, mesh, placements);
    elements += placementCount(placements, mv::RoleNodes);
  }
  reportRates(state, elements, 0.0);
}
BENCHMARK(BM_PhyllotaxisTenThousandElements)->Unit(benchmark::kMillisecond);

}  // namespace
