// Converting a large generated scene into growth objects: trees of leaves, thousands of leaves in
// all, through the whole load and conversion into the recording converter. Each tree runs the
// classic trunk construction once.
#include <benchmark/benchmark.h>

#include <string>

#include "GeneratedScene.h"
#include "curves/ParameterSetData.h"
#include "support/ConversionRecorder.h"

namespace {

void BM_ConversionGenerated(benchmark::State& state) {
  long lines = 0;
  const std::string text = generateScene(static_cast<int>(state.range(0)), lines);
  for (auto _ : state) {
    mv::ParameterSetData settings;
    ConversionRecorder loader;
    loader.initParameters(settings, 100.0);
    if (!convertScene(loader, settings, text)) state.SkipWithError("the scene did not convert");
    benchmark::DoNotOptimize(loader.branches.size());
  }
  state.counters["components"] = 1.0 + 100.0 * static_cast<double>(state.range(0));
  state.counters["components/s"] =
      benchmark::Counter((1.0 + 100.0 * static_cast<double>(state.range(0))) * state.iterations(),
                         benchmark::Counter::kIsRate);
}
// 10 and 50 trees: 990 and 4 950 leaves.
BENCHMARK(BM_ConversionGenerated)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace
