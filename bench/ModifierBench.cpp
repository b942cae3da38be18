// The modifiers and the grown path: bending a long path, walking many steps, pushing a large
// mesh through an attractor field.
#include <benchmark/benchmark.h>

#include "classic/Attractor.h"
#include "classic/AttractorPrim.h"
#include "classic/Node.h"
#include "classic/SolidParameters.h"
#include "curves/ParameterSetData.h"
#include "geometry/CurvatureSpline.h"
#include "geometry/MeshData.h"
#include "geometry/PolylineSpline.h"
#include "growth/Deviation.h"
#include "growth/Tropism.h"
#include "support/SplineBuilders.h"

namespace {

// Tropism on a straight path of range(0) points: one bend per step over the whole rest.
void BM_TropismBendPath(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  mv::SplineData straight;
  appendSegment(straight, linePoints(count, {0, 0, 0}, {10, 0, 0}));
  mv::Tropism tropism;
  mv::ParameterSetData params;
  tropism.initParameters(params, 100.0);
  for (auto _ : state) {
    mv::SplineData path = straight;
    tropism.deformSpline(params, path, mv::Matrix4());
    benchmark::DoNotOptimize(path.points.back());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_TropismBendPath)->Arg(10000)->Unit(benchmark::kMillisecond);

// Deviation with ten nodes on a straight path of range(0) points.
void BM_DeviationKinkPath(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  mv::PolylineSpline straight;
  appendSegment(straight, linePoints(count, {0, 0, 0}, {0, 0, 10}));
  mv::Deviation deviation;
  mv::ParameterSetData params;
  deviation.initParameters(params, 100.0);
  params.setDouble(mv::Deviation::ownerNodeNumber, 10);
  params.setCurve(mv::Deviation::ownerNodeDistribution, mv::CurveParam(0, 1, 1, 1, "id"));
  params.setCurve(mv::Deviation::ownerNodeScrew, mv::CurveParam(0, 7, 2.4, 2.4, "id"));
  for (auto _ : state) {
    mv::PolylineSpline path = straight;
    deviation.deformSpline(params, path, mv::Matrix4());
    benchmark::DoNotOptimize(path.points.back());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_DeviationKinkPath)->Arg(10000)->Unit(benchmark::kMillisecond);

// A curvature spline of range(0) steps with turning and moving curves.
void BM_CurvatureSplineWalk(benchmark::State& state) {
  mv::CurvatureSpline spline;
  mv::ParameterSetData params;
  spline.initParameters(params, 1.0);
  params.setDouble(mv::CurvatureSpline::curvSteps, static_cast<double>(state.range(0)));
  params.setCurve(mv::CurvatureSpline::curv_rota_x, mv::CurveParam(-4, 4, 0, 3, "id"));
  params.setCurve(mv::CurvatureSpline::curv_rota_z, mv::CurveParam(-4, 4, 1, 1, "id"));
  for (auto _ : state) {
    spline.computeFrames(params, 1.0);
    benchmark::DoNotOptimize(spline.frames().back());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CurvatureSplineWalk)->Arg(10000)->Unit(benchmark::kMillisecond);

// One attractor field over a mesh of range(0) points spread through its reach.
void BM_AttractorDeformPoints(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  mv::MeshData mesh;
  for (int i = 0; i < count; ++i) mesh.points.push_back({(i % 1000) * 0.1 - 50, i * 1e-4 - 50, 3});
  mv::Node node;
  node.setSimple(new mv::Attractor());
  mv::Node* field = new mv::Node();
  field->setSimple(new mv::AttractorPrim());
  field->parameters().setDouble(mv::IdAttractorStrength, 0.01);
  node.addChild(field, "");
  mv::PlacementList placements;
  for (auto _ : state) {
    node.simple()->deformPoints(node.parameters(), mesh, placements, node);
    benchmark::DoNotOptimize(mesh.points.back());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_AttractorDeformPoints)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
