// Writing a mesh of 100 000 quads (a 317 x 317 patch) as OBJ and as binary glTF.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"

namespace {

const mv::MeshData& largeMesh() {
  static const mv::MeshData mesh = [] {
    const int n = 317;  // 316 * 316 = 99 856 quads
    std::vector<mv::Vector3> points;
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < n; ++i) points.emplace_back(0.01 * i, 0.01 * j, 0.001 * ((i * j) % 7));
    }
    mv::MeshData result;
    mv::OPolygonStream stream(&result, true);
    mv::GeomPrimitiveWriter::writePatch(stream, n, n, points);
    stream.flush();
    return result;
  }();
  return mesh;
}

template <typename Writer>
void writeMesh(benchmark::State& state, const std::string& suffix) {
  const mv::MeshData& mesh = largeMesh();
  const std::string path = "morvo_bench_export" + suffix;
  for (auto _ : state) {
    if (!Writer().write(mesh, path)) state.SkipWithError("write failed");
  }
  state.SetItemsProcessed(state.iterations() * mesh.getPolygonCount());
  std::remove(path.c_str());
  std::remove("morvo_bench_export.mtl");
}

void BM_WriteObj(benchmark::State& state) { writeMesh<mv::ObjWriter>(state, ".obj"); }
void BM_WriteGlb(benchmark::State& state) { writeMesh<mv::GlbWriter>(state, ".glb"); }
BENCHMARK(BM_WriteObj)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteGlb)->Unit(benchmark::kMillisecond);

}  // namespace
