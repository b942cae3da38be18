// Curve evaluation is read for every point of every element: the hot path of generation.
#include <benchmark/benchmark.h>

#include "curves/CurveParam.h"
#include "curves/CurveParamIntegration.h"

namespace {

constexpr int kPositions = 1024;

double position(int i) { return static_cast<double>(i % kPositions) / (kPositions - 1); }

// Eight smooth inner points between corner ends: every read solves a cubic.
mv::CurveParam drawnCurve() {
  mv::CurveParam curve(0.0, 2.0, 0.2, 1.0, "id");
  for (int i = 1; i <= 8; ++i) curve.addPoint(i / 9.0, 1.0 + 0.5 * ((i % 3) - 1), mv::PointSmooth);
  return curve;
}

void evaluateAll(benchmark::State& state, const mv::CurveParam& curve) {
  int i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(curve.evaluate(position(i++)));
  state.SetItemsProcessed(state.iterations());
}

void BM_CurveEvaluateDefault(benchmark::State& state) { evaluateAll(state, mv::CurveParam()); }
BENCHMARK(BM_CurveEvaluateDefault);

void BM_CurveEvaluateDrawnTenPoints(benchmark::State& state) { evaluateAll(state, drawnCurve()); }
BENCHMARK(BM_CurveEvaluateDrawnTenPoints);

void BM_CurveEvaluateSinXTimesU(benchmark::State& state) {
  evaluateAll(state, mv::CurveParam(0.0, 1.0, 0.0, 1.0, "sin(x)*u"));
}
BENCHMARK(BM_CurveEvaluateSinXTimesU);

// The evaluation as first written: a copy of the variables map with x and u set. Kept as the
// reference for the map-free scope that evaluate uses.
void BM_CurveEvaluateDefaultWithMapCopy(benchmark::State& state) {
  const mv::CurveParam curve;
  int i = 0;
  for (auto _ : state) {
    const double u = position(i++);
    mv::VariableMap variables = curve.variables();
    variables['x'] = curve.evaluateCurve(u);
    variables['u'] = u;
    benchmark::DoNotOptimize(curve.expression().evaluate(variables));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CurveEvaluateDefaultWithMapCopy);

void BM_ExpressionParse(benchmark::State& state) {
  mv::Expression expression;
  for (auto _ : state) benchmark::DoNotOptimize(expression.parse("sin(x*3.1)*u+noise(x*8)^2-1"));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ExpressionParse);

void BM_IntegrationSolve(benchmark::State& state) {
  const mv::CurveParam curve = drawnCurve();
  mv::CurveParamIntegration density(&curve);
  const double total = density.integrate(0.0, 1.0);
  int i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(density.solve(0.0, 1.0, total * position(i++)));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_IntegrationSolve);

void BM_IntegrationIntegrate(benchmark::State& state) {
  const mv::CurveParam curve = drawnCurve();
  mv::CurveParamIntegration density(&curve);
  int i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(density.integrate(0.0, position(i++)));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_IntegrationIntegrate);

}  // namespace
