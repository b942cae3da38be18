// Evaluation of a three-level tree document through the plug-in layer: a trunk Branch, Branches
// at its nodes and twig Branches at theirs, with instances merged into meshes or kept as
// separate objects; and the pass over the same document unchanged, which only answers caches.
#include <benchmark/benchmark.h>

#include <memory>

#include "host/BaseDocument.h"
#include "host/DocumentPass.h"
#include "host/PluginLoader.h"
#include "host/PolygonObject.h"
#include "source/Main.h"
#include "support/PlantDocuments.h"

namespace {

constexpr Int32 kRingPoints = 32;
constexpr Int32 kPathPoints = 49;

bool pluginLoaded() {
  static const bool loaded = PluginLoader::Load(&c4d_main, MORVO_SOURCE_DIR "/");
  return loaded;
}

BaseObject* level(const String& name, Float radius, Float length, Float nodes, bool separate) {
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  branch->SetName(name);
  ringSpline(radius, kRingPoints)->InsertUnderLast(branch);
  straightPath(length, kPathPoints)->InsertUnderLast(branch);
  branch->GetDataInstance()->SetReal(1301, nodes);
  branch->GetDataInstance()->SetBool(ID_SEPARATE_OBJECTS, separate);
  return branch;
}

// About a million triangles: 1 trunk, 72 branches, 72 twigs on each, fewer where growth is small.
std::unique_ptr<BaseDocument> treeDocument(bool separate) {
  auto document = std::make_unique<BaseDocument>();
  BaseObject* trunk = level("Trunk", 20, 800, 72, separate);
  BaseObject* branch = level("Branch", 8, 300, 72, separate);
  level("Twig", 2, 80, 0, separate)->InsertUnderLast(branch);
  branch->InsertUnderLast(trunk);
  document->InsertObject(trunk, nullptr, nullptr);
  return document;
}

// Triangles of every polygon object from first down, caches included.
int64_t triangles(BaseObject* first) {
  int64_t count = 0;
  for (BaseObject* object = first; object != nullptr; object = object->GetNext()) {
    if (object->IsInstanceOf(Opolygon)) {
      auto* mesh = static_cast<PolygonObject*>(object);
      for (Int32 i = 0; i < mesh->GetPolygonCount(); ++i) {
        count += mesh->GetPolygonR()[i].c == mesh->GetPolygonR()[i].d ? 1 : 2;
      }
    }
    count += triangles(object->GetCache());
    if ((object->GetInfo() & OBJECT_INPUT) == 0) count += triangles(object->GetDown());
  }
  return count;
}

void BM_TreeDocumentPass(benchmark::State& state) {
  if (!pluginLoaded()) {
    state.SkipWithError("the plug-in did not load");
    return;
  }
  const bool separate = state.range(0) != 0;
  int64_t made = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::unique_ptr<BaseDocument> document = treeDocument(separate);
    state.ResumeTiming();
    DocumentPass::Run(document.get(), nullptr);
    state.PauseTiming();
    made = triangles(document->GetFirstObject());
    document.reset();
    state.ResumeTiming();
  }
  state.counters["triangles"] = static_cast<double>(made);
  state.counters["triangles/s"] =
      benchmark::Counter(static_cast<double>(made), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_TreeDocumentPass)
    ->Arg(0)
    ->Arg(1)
    ->ArgName("separate")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_TreeDocumentUnchangedPass(benchmark::State& state) {
  if (!pluginLoaded()) {
    state.SkipWithError("the plug-in did not load");
    return;
  }
  std::unique_ptr<BaseDocument> document = treeDocument(state.range(0) != 0);
  DocumentPass::Run(document.get(), nullptr);
  for (auto _ : state) DocumentPass::Run(document.get(), nullptr);
  state.counters["triangles"] = static_cast<double>(triangles(document->GetFirstObject()));
}
BENCHMARK(BM_TreeDocumentUnchangedPass)
    ->Arg(0)
    ->Arg(1)
    ->ArgName("separate")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
