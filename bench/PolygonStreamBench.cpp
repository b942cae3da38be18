// The polygon output path: tokens through OPolygonStream into MeshData, and the triangulation of
// outlines of growing size.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"
#include "geometry/Triangulation.h"

namespace {

// A closed tube of nu columns (the last repeats the first) and nv rings.
std::vector<mv::Vector3> tube(int nu, int nv) {
  std::vector<mv::Vector3> points;
  points.reserve(static_cast<size_t>(nu) * nv);
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) {
      const double angle = -2.0 * M_PI * (i % (nu - 1)) / (nu - 1);
      points.emplace_back(std::cos(angle), std::sin(angle), 0.1 * j);
    }
  }
  return points;
}

// Patches of range(0) x range(1) points into a fresh mesh; items are quads.
void BM_PolygonStreamPatch(benchmark::State& state) {
  const int nu = static_cast<int>(state.range(0)), nv = static_cast<int>(state.range(1));
  const std::vector<mv::Vector3> points = tube(nu, nv);
  for (auto _ : state) {
    mv::MeshData mesh;
    {
      mv::OPolygonStream stream(&mesh, true);
      mv::GeomPrimitiveWriter::writePatch(stream, nu, nv, points);
    }
    benchmark::DoNotOptimize(mesh.polygons.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(nu - 1) * (nv - 1));
}
BENCHMARK(BM_PolygonStreamPatch)
    ->Args({65, 256})
    ->Args({1001, 1001})
    ->Unit(benchmark::kMillisecond);

// A star outline of range(0) corners: concave, so ear clipping has reflex corners to skip.
void BM_Triangulate(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  std::vector<mv::Vector3> outline;
  for (int k = 0; k < n; ++k) {
    const double angle = 2.0 * M_PI * k / n, r = k % 2 == 0 ? 1.0 : 0.6;
    outline.emplace_back(r * std::cos(angle), r * std::sin(angle), 0.0);
  }
  std::vector<uint32_t> triangles;
  for (auto _ : state) {
    mv::triangulate(outline, triangles, true);
    benchmark::DoNotOptimize(triangles.data());
  }
  state.SetComplexityN(n);
}
BENCHMARK(BM_Triangulate)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
