// Growing a lawn of 1 000 000 blades (six segments, clumps of 20) on a surface of 10 000 quads
// (a 101 x 101 grid): the grass tag's two passes on a hair object, as the hair system runs them.
#include <benchmark/benchmark.h>

#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/HairObject.h"
#include "host/PluginRegistry.h"
#include "host/PolygonObject.h"
#include "source/MGrassTag/MGrassTagData.h"
#include "source/PluginIds.h"

namespace {

PolygonObject* grid(Int32 n) {
  PolygonObject* surface = PolygonObject::Alloc((n + 1) * (n + 1), n * n);
  for (Int32 j = 0; j <= n; ++j) {
    for (Int32 i = 0; i <= n; ++i) surface->GetPointW()[j * (n + 1) + i] = Vector(i, 0, j) * 10.0;
  }
  for (Int32 j = 0; j < n; ++j) {
    for (Int32 i = 0; i < n; ++i) {
      const Int32 a = j * (n + 1) + i;
      surface->GetPolygonW()[j * n + i] = CPolygon(a, a + 1, a + n + 2, a + n + 1);
    }
  }
  return surface;
}

void growLawn(benchmark::State& state) {
  RegisterTagPlugin(ID_GRASS_TAG, "Grass", TAG_VISIBLE | TAG_EXPRESSION, &MGrassTagData::Alloc,
                    "TMGrassTag", nullptr, 0);
  BaseDocument doc;
  PolygonObject* surface = grid(100);
  auto* hair = static_cast<HairObject*>(BaseObject::Alloc(Ohair));
  doc.InsertObject(surface, nullptr, nullptr);
  doc.InsertObject(hair, nullptr, nullptr);
  hair->GetDataInstance()->SetLink(HAIRSTYLE_LINK, surface);
  BaseTag* tag = hair->MakeTag(ID_GRASS_TAG);
  tag->GetDataInstance()->SetLink(MGrassTagData::MGRASS_SURFACE, surface);
  tag->GetDataInstance()->SetLong(MGrassTagData::MGRASS_HAIRCOUNT, 1000000);
  Int64 blades = 0;
  for (auto _ : state) {
    MGrassTagData::generate(&doc, tag, hair, nullptr, nullptr, 0);
    if (!MGrassTagData::generate(&doc, tag, hair, nullptr, nullptr, 1)) {
      state.SkipWithError("no guides");
    }
    blades += hair->GetGuides()->GetCount();
    benchmark::DoNotOptimize(hair->GetGuides()->GetPoints());
  }
  state.SetItemsProcessed(blades);
  state.counters["blades"] = double(hair->GetGuides()->GetCount());
}
BENCHMARK(growLawn)->Unit(benchmark::kMillisecond);

}  // namespace
