// The memory that loading a scene file costs, against the file's size, on generated files of
// many key frames: the peak of live heap bytes during the load divided by the file's bytes. Its
// own program, because it counts every allocation through a replaced operator new.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <new>
#include <sstream>
#include <string>

#include "classic/SceneGraph.h"
#include "curves/ParameterSetData.h"
#include "scene/MvrSceneLoader.h"

namespace {

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

// A plant of a tree and a leaf, repeated in every key frame with its time.
std::string generateScene(int keyFrames) {
  std::string text = "Version 0.93\nQueue {\nFrames " + std::to_string(keyFrames) + "\n";
  for (int frame = 0; frame < keyFrames; ++frame) {
    text += "KeyFrame {\nName \"Key " + std::to_string(frame) + "\"\nTime " +
            std::to_string(frame) +
            "\nModel {\nStruct {\nName \"Camera\"\nCamera {\n}\nChildren {\n\"Stem\"\n}\n}\n"
            "Struct {\nName \"Stem\"\nPrimitive {\nType \"Tube\"\nPoints 6\n}\nTree {\n"
            "Segments 10\nLength {3,0.001,20}\nBranch_Num {5,1,100}\nBranches {\n\"Leaf\"\n}\n"
            "}\n}\nStruct {\nName \"Leaf\"\nPrimitive {\nType \"Area\"\n}\nLeaf {\n"
            "Segments {4,1,100}\n}\n}\n}\n}\n";
  }
  return text + "}\n";
}

void keyFrameLoadMemory(benchmark::State& state) {
  const std::string text = generateScene(static_cast<int>(state.range(0)));
  double ratio = 0.0;
  for (auto _ : state) {
    mv::SceneGraph graph;
    std::istringstream stream(text);
    const std::size_t before = liveBytes;
    peakBytes = liveBytes;
    {
      mv::MvrSceneLoader loader(&graph);
      mv::ParameterSetData settings;
      loader.initParameters(settings, 1.0);
      benchmark::DoNotOptimize(loader.loadStream(settings, stream));
      loader.releaseUnlinked();
    }
    ratio = static_cast<double>(peakBytes - before) / static_cast<double>(text.size());
  }
  state.counters["fileBytes"] = static_cast<double>(text.size());
  state.counters["peakBytesPerFileByte"] = ratio;
}
BENCHMARK(keyFrameLoadMemory)->Arg(100)->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond);

}  // namespace

void* operator new(std::size_t size) {
  void* block = std::malloc(size ? size : 1);
  if (!block) throw std::bad_alloc();
  liveBytes += malloc_usable_size(block);
  if (liveBytes > peakBytes) peakBytes = liveBytes;
  return block;
}

void operator delete(void* block) noexcept {
  if (!block) return;
  liveBytes -= malloc_usable_size(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
