// Hatching an outline with a pattern, as the object previews do on every change: a 30 × 5
// setting block with ANSI34 at scale 0.5, the same with the fine ANSI37 and the many-family
// AR-CONC, a bulged outline, and a tiny scale on a large outline (where the segment cap works).
#include "obj/ZelHatchPatterns.h"

#include <benchmark/benchmark.h>

namespace {

CZelVertexArray rectangle(double w, double h) {
  CZelVertexArray r;
  r.add(0, 0);
  r.add(w, 0);
  r.add(w, h);
  r.add(0, h);
  return r;
}

void hatch(benchmark::State& state, const CZelVertexArray& outline, const wchar_t* pattern, double scale) {
  std::size_t points = 0;
  for (auto _ : state) {
    CDisplayList list;
    ZEL::addPatternHatch(list, outline, pattern, scale, 0.0, CZelColor::fromIndex(7));
    points = list.isEmpty() ? 0 : static_cast<std::size_t>(list.items()[0].points.count());
    benchmark::DoNotOptimize(list);
  }
  state.counters["segments"] = static_cast<double>(points / 2);
}

void BM_Block30x5Ansi34(benchmark::State& state) { hatch(state, rectangle(30, 5), L"ANSI34", 0.5); }
void BM_Block30x5Ansi37(benchmark::State& state) { hatch(state, rectangle(30, 5), L"ANSI37", 0.5); }
void BM_Block30x5ArConc(benchmark::State& state) { hatch(state, rectangle(30, 5), L"AR-CONC", 0.05); }

void BM_RoundedProfileGravel(benchmark::State& state) {
  CZelVertexArray outline;
  outline.add(0, 0);
  outline.add(60, 0, 0.4);
  outline.add(60, 40);
  outline.add(0, 40, -0.3);
  hatch(state, outline, L"GRAVEL", 0.2);
}

void BM_TinyScaleOnLargeOutline(benchmark::State& state) { hatch(state, rectangle(10000, 10000), L"AR-SAND", 0.001); }

}  // namespace

BENCHMARK(BM_Block30x5Ansi34)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_Block30x5Ansi37)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_Block30x5ArConc)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_RoundedProfileGravel)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_TinyScaleOnLargeOutline)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK_MAIN();
