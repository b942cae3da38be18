// Writing patches through the geometry stream: the token cost every generator pays.
#include <benchmark/benchmark.h>

#include "support/CountingGeomStream.h"

namespace {

void writePatch(mv::OGeomStream& s, int nu, int nv) {
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 1 << mv::CmdPatch << nu << 2 << '[' << 0.0;
  for (int i = 0; i < nu; ++i) s << static_cast<double>(i);
  s << static_cast<double>(nu - 1) << ']' << 0.0 << static_cast<double>(nu - 1);
  s << nv << 2 << '[' << 0.0;
  for (int j = 0; j < nv; ++j) s << static_cast<double>(j);
  s << static_cast<double>(nv - 1) << ']' << 0.0 << static_cast<double>(nv - 1);
  s.param(mv::ParamPoints) << '[';
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) s << mv::Vector3(i, j, 0.5 * i);
  }
  s << ']' << mv::CmdGroupEnd;
}

void BM_GeomStreamPatchTokens(benchmark::State& state) {
  const int nu = static_cast<int>(state.range(0));
  CountingGeomStream stream;
  for (auto _ : state) {
    writePatch(stream, nu, nu);
    benchmark::DoNotOptimize(stream.pointCount);
  }
  state.SetItemsProcessed(state.iterations() * nu * nu);
}
BENCHMARK(BM_GeomStreamPatchTokens)->Arg(8)->Arg(32)->Arg(128);

}  // namespace
