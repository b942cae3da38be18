// Loading a large generated scene: trees of leaves, about 100 lines per component, through the
// whole load into the recording loader. Lines per second must not fall as the scene grows.
#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "GeneratedScene.h"
#include "curves/ParameterSetData.h"
#include "scene/MvrRecordingLoader.h"

namespace {

void BM_SceneLoadGenerated(benchmark::State& state) {
  long lines = 0;
  const std::string text = generateScene(static_cast<int>(state.range(0)), lines);
  for (auto _ : state) {
    mv::ParameterSetData settings;
    mv::MvrRecordingLoader loader;
    loader.initParameters(settings, 1.0);
    std::istringstream stream(text);
    if (!loader.loadStream(settings, stream)) state.SkipWithError("the scene did not load");
    benchmark::DoNotOptimize(loader.calls.size());
  }
  state.counters["lines"] = static_cast<double>(lines);
  state.counters["components"] = 1.0 + 100.0 * static_cast<double>(state.range(0));
  state.counters["lines/s"] = benchmark::Counter(static_cast<double>(lines) * state.iterations(),
                                                 benchmark::Counter::kIsRate);
}
// 25, 50 and 100 trees: 2 500, 5 000 and 10 000 components, about 0.25, 0.5 and 1 million lines.
BENCHMARK(BM_SceneLoadGenerated)->Arg(25)->Arg(50)->Arg(100)->Unit(benchmark::kMillisecond);

}  // namespace
