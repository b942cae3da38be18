// The curve type and its editor: storing and reading a curve, drawing the editor's area and
// turning the drawing into pixels.
#include <benchmark/benchmark.h>

#include "host/DrawingRaster.h"
#include "source/CurveGui.h"
#include "source/CurveStorage.h"
#include "support/ByteCurveStream.h"

namespace {

mv::CurveParam tenPoints() {
  mv::CurveParam curve(-1.0, 2.0, 0.0, 1.0, "sin");
  for (int i = 1; i <= 8; ++i) curve.addPoint(i / 9.0, (i % 3) * 0.5, mv::PointSmooth);
  return curve;
}

void BM_CurveWriteRead(benchmark::State& state) {
  const mv::CurveParam curve = tenPoints();
  for (auto _ : state) {
    ByteCurveStream stream;
    CurveStorage::write(curve, stream);
    mv::CurveParam read;
    CurveStorage::read(read, stream, CurveStorage::kLevel);
    benchmark::DoNotOptimize(read);
  }
}
BENCHMARK(BM_CurveWriteRead);

// The editor's area at its minimum size and at the command's default size.
void BM_CurveGuiDraw(benchmark::State& state) {
  mv::CurveParam curve = tenPoints();
  CurveGui gui;
  gui.SetSize(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
  gui.curve = &curve;
  gui.selection = {3, 5};
  for (auto _ : state) {
    gui.Redraw();
    benchmark::DoNotOptimize(gui.drawing().data());
  }
}
BENCHMARK(BM_CurveGuiDraw)->Args({280, 45})->Args({280, 120});

void BM_CurveGuiRaster(benchmark::State& state) {
  mv::CurveParam curve = tenPoints();
  CurveGui gui;
  gui.SetSize(280, 120);
  gui.curve = &curve;
  gui.Redraw();
  for (auto _ : state) {
    DrawingRaster raster(280, 120);
    raster.draw(gui.drawing());
    benchmark::DoNotOptimize(raster.pixel(10, 10));
  }
}
BENCHMARK(BM_CurveGuiRaster);

}  // namespace
