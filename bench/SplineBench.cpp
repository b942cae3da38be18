// Frames along a path: what a branch pays for each node and each ring of its tube.
#include <benchmark/benchmark.h>

#include "geometry/PolylineSpline.h"
#include "support/SplineBuilders.h"

namespace {

mv::PolylineSpline helixPath(int count) {
  mv::PolylineSpline spline;
  appendSegment(spline, helixPoints(count, 1.0, 0.5, 4.0));
  return spline;
}

// getFrame at as many parameters as the path has points, each carried from the one before.
void BM_SplineCarriedFramesAlongPath(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const mv::PolylineSpline spline = helixPath(count);
  for (auto _ : state) {
    mv::Matrix4 frame;
    for (int i = 0; i < count; ++i) {
      spline.getFrame((i + 0.5) / count, frame, 0, true, frame);
    }
    benchmark::DoNotOptimize(frame);
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_SplineCarriedFramesAlongPath)->Arg(100)->Arg(1000);

// getPointFrame at every point, each carried from the one before.
void BM_SplinePointFramesAlongPath(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const mv::PolylineSpline spline = helixPath(count);
  for (auto _ : state) {
    mv::Matrix4 frame;
    double t = 0;
    for (int i = 0; i < count; ++i) spline.getPointFrame(i, frame, t, frame);
    benchmark::DoNotOptimize(frame);
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_SplinePointFramesAlongPath)->Arg(1000);

}  // namespace
