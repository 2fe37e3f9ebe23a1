// How fast the setting-block dialog answers, headless on the factory settings: opening it
// through its entry function with the preview generated and drawn, then closing it; and one
// width change (the field's check, the handler, the store write, the tab's refresh, the
// main dialog's refresh with the preview generated and drawn again).
#include "BenchScript.h"
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "qen_mfc.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sstream>
#include <stdexcept>

namespace {

double runEntry(const CDialogScript& script) {
  return timedRun(script, [] {
    qenDlgEnv_st env;
    return qenDlgHzKl(env);
  });
}

// Open with the preview, then OK.
void BM_BlockOpenWithPreviewAndClose(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  const CDialogScript script = benchScript("ok\n");
  for (auto _ : state) benchmark::DoNotOptimize(runEntry(script));
}
BENCHMARK(BM_BlockOpenWithPreviewAndClose)->Unit(benchmark::kMicrosecond);

// One width change: a run of 200 changes less a run that only opens and closes, per change.
void BM_BlockWidthChange(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  constexpr int kChanges = 200;
  std::string text;
  for (int i = 0; i < kChanges; ++i) text += "enter 0/10389 \"" + std::to_string(20 + i % 2) + "\"\n";
  const CDialogScript changes = benchScript(text + "ok\n");
  const CDialogScript none = benchScript("ok\n");
  for (auto _ : state) {
    const double base = runEntry(none);
    const double all = runEntry(changes);
    state.SetIterationTime((all - base) / kChanges);
  }
}
BENCHMARK(BM_BlockWidthChange)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
