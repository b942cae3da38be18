// The generator import of a large classic tree: a trunk of 100 boughs, each with 30 twigs (3 000
// placed twigs), converted into growth objects; then the converted document rendered through the
// host, beside the classic render of the same file.
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "classic/SceneGraph.h"
#include "curves/ParameterSetData.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/DocumentMesh.h"
#include "host/PluginLoader.h"
#include "host/SceneLoaderData.h"
#include "scene/MvrSceneLoader.h"
#include "source/Main.h"
#include "source/MvrLoader.h"
#include "support/CapturingConsole.h"
#include "support/CapturingMessageHandler.h"
#include "support/SceneRendering.h"

namespace {

std::string treeStruct(const std::string& name, int branches, const std::string& child) {
  std::string text = "Struct {\nName \"" + name +
                     "\"\nPrimitive {\nType \"Tube\"\nPoints 8\n}\nTree {\nSegments 24\n"
                     "Branch_Num {" +
                     std::to_string(branches) + ",1,1000}\n";
  if (!child.empty()) text += "Branches {\n\"" + child + "\"\n}\n";
  return text + "}\n}\n";
}

const std::string& largeTreeFile() {
  static const std::string path = [] {
    const std::string file = "/tmp/morvo-bench-large-tree.mvr";
    std::ofstream(file, std::ios::binary)
        << "Version 0.93\nQueue {\nKeyFrame {\nModel {\n"
           "Struct {\nName \"Camera\"\nCamera {\n}\nChildren {\n\"Trunk\"\n}\n}\n" +
               treeStruct("Trunk", 100, "Bough") + treeStruct("Bough", 30, "Twig") +
               treeStruct("Twig", 4, "") + "}\n}\n}\n";
    return file;
  }();
  return path;
}

bool pluginLoaded() {
  static const bool loaded = PluginLoader::Load(&c4d_main, MORVO_SOURCE_DIR "/");
  return loaded;
}

BaseDocument* importTree() {
  BaseDocument* document = BaseDocument::Alloc();
  BaseContainer data;
  MvrLoader::initSettings(data);
  data.SetLong(MvrLoader::IdImportMode, MvrLoader::ModeGenerators);
  mv::ParameterSetData settings;
  MvrLoader::copySettings(data, settings);
  MvrLoader::importGenerators(Filename(largeTreeFile()), document, SCENEFILTER_OBJECTS, data,
                              settings);
  return document;
}

void BM_GeneratorImportLargeTree(benchmark::State& state) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  if (!pluginLoaded()) state.SkipWithError("the plug-in did not load");
  for (auto _ : state) {
    BaseDocument* document = importTree();
    benchmark::DoNotOptimize(document->GetFirstObject());
    BaseDocument::Free(document);
  }
}
BENCHMARK(BM_GeneratorImportLargeTree)->Unit(benchmark::kMillisecond);

void BM_ConvertedLargeTreeRender(benchmark::State& state) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  if (!pluginLoaded()) state.SkipWithError("the plug-in did not load");
  size_t polygons = 0;
  for (auto _ : state) {
    state.PauseTiming();
    BaseDocument* document = importTree();
    state.ResumeTiming();
    DocumentMesh mesh;
    if (!mesh.collect(document)) state.SkipWithError("the converted tree rendered nothing");
    polygons = mesh.mesh().getPolygonCount();
    state.PauseTiming();
    BaseDocument::Free(document);
    state.ResumeTiming();
  }
  state.counters["polygons"] = static_cast<double>(polygons);
}
BENCHMARK(BM_ConvertedLargeTreeRender)->Unit(benchmark::kMillisecond);

void BM_ClassicLargeTreeRender(benchmark::State& state) {
  CapturingMessageHandler messages;
  size_t polygons = 0;
  for (auto _ : state) {
    mv::SceneGraph graph;
    mv::MvrSceneLoader loader(&graph);
    mv::ParameterSetData settings;
    loader.initParameters(settings, 100.0);
    loader.load(settings, largeTreeFile());
    polygons = renderNode(graph).getPolygonCount();
  }
  state.counters["polygons"] = static_cast<double>(polygons);
}
BENCHMARK(BM_ClassicLargeTreeRender)->Unit(benchmark::kMillisecond);

}  // namespace
