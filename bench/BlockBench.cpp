// How fast the setting-block dialog answers, headless on the factory settings: opening it
// through its entry function with the preview generated and drawn, then closing it; and one
// width change (the field's check, the handler, the store write, the tab's refresh, the
// main dialog's refresh with the preview generated and drawn again).
#include "backend/CScriptBackend.h"
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "qen_mfc.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sstream>
#include <stdexcept>

namespace {

CDialogScript parsed(const std::string& text) {
  CDialogScript script;
  std::string error;
  if (!CDialogScript::parse(text, "bench.qds", script, error)) throw std::runtime_error(error);
  return script;
}

double runEntry(const CDialogScript& script) {
  std::ostringstream out, err;
  CScriptBackend backend(script, out, err);
  CDialogBackendScope scope(backend);
  qenDlgEnv_st env;
  const auto start = std::chrono::steady_clock::now();
  qenDlgHzKl(env);
  const auto end = std::chrono::steady_clock::now();
  return std::chrono::duration<double>(end - start).count();
}

// Open with the preview, then OK.
void BM_BlockOpenWithPreviewAndClose(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  const CDialogScript script = parsed("ok\n");
  for (auto _ : state) benchmark::DoNotOptimize(runEntry(script));
}
BENCHMARK(BM_BlockOpenWithPreviewAndClose)->Unit(benchmark::kMicrosecond);

// One width change: a run of 200 changes less a run that only opens and closes, per change.
void BM_BlockWidthChange(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  constexpr int kChanges = 200;
  std::string text;
  for (int i = 0; i < kChanges; ++i) text += "enter 0/10389 \"" + std::to_string(20 + i % 2) + "\"\n";
  const CDialogScript changes = parsed(text + "ok\n");
  const CDialogScript none = parsed("ok\n");
  for (auto _ : state) {
    const double base = runEntry(none);
    const double all = runEntry(changes);
    state.SetIterationTime((all - base) / kChanges);
  }
}
BENCHMARK(BM_BlockWidthChange)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
