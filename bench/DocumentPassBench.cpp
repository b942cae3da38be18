// The host's document pass over 10 000 objects: the first pass builds every cache, a second
// pass over the unchanged document only confirms them.
#include <benchmark/benchmark.h>

#include "host/BaseDocument.h"
#include "host/BaseObject.h"

namespace {

constexpr int kGroups = 100;
constexpr int kPerGroup = 99;  // with the groups, 10 000 objects

BaseDocument* tenThousandObjects() {
  BaseDocument* doc = BaseDocument::Alloc();
  BaseObject* previous = nullptr;
  for (int g = 0; g < kGroups; ++g) {
    BaseObject* group = BaseObject::Alloc(Onull);
    doc->InsertObject(group, nullptr, previous);
    previous = group;
    for (int i = 0; i < kPerGroup; ++i) {
      BaseObject* cube = BaseObject::Alloc(i % 2 ? Ocube : Ocone);
      cube->SetMl(MatrixMove(Vector(i * 10.0, g * 10.0, 0)));
      cube->InsertUnderLast(group);
    }
  }
  return doc;
}

void BM_DocumentFirstPass(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    BaseDocument* doc = tenThousandObjects();
    state.ResumeTiming();
    doc->ExecutePasses(nullptr, true, true, true, 0);
    state.PauseTiming();
    BaseDocument::Free(doc);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kGroups * (kPerGroup + 1));
}
BENCHMARK(BM_DocumentFirstPass)->Unit(benchmark::kMillisecond);

void BM_DocumentUnchangedPass(benchmark::State& state) {
  BaseDocument* doc = tenThousandObjects();
  doc->ExecutePasses(nullptr, true, true, true, 0);
  for (auto _ : state) doc->ExecutePasses(nullptr, true, true, true, 0);
  state.SetItemsProcessed(state.iterations() * kGroups * (kPerGroup + 1));
  BaseDocument::Free(doc);
}
BENCHMARK(BM_DocumentUnchangedPass)->Unit(benchmark::kMillisecond);

}  // namespace
