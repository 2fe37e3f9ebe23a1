// How fast the seal and silicone dialogs are, headless on the factory settings: opening a
// dialog with its preview and closing it again, and one typed width with everything it
// sets off (store, tab refresh, preview regenerated and drawn).
#include "qen_mfc.h"

#include "BenchScript.h"
#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "data/ZelFactorySettings.h"

#include <benchmark/benchmark.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace {

int seal(qenDlgEnv_st& env) { return qenDlgHzDi(env); }
int silicone(qenDlgEnv_st& env) { return qenDlgHzSi(env); }

// The entry function under a script; an empty script opens the dialog (initialisation,
// pages, preview) and cancels it at once.
template <int (*Entry)(qenDlgEnv_st&)>
void openAndClose(benchmark::State& state) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  for (auto _ : state) {
    std::ostringstream out, err;
    CScriptBackend backend(CDialogScript{}, out, err);
    CDialogBackendScope scope(backend);
    qenDlgEnv_st env;
    benchmark::DoNotOptimize(Entry(env));
  }
}

// `entries` widths typed into the width field one after the other, each a change; the time
// per entry is the run's time divided by their number (the one opening and closing is left in).
template <int (*Entry)(qenDlgEnv_st&)>
void widthEntries(benchmark::State& state, const wchar_t* menuKey) {
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  // The width is given in the dialog, not determined on screen.
  CZelDataKey key;
  key.set(5005, L"QEN_MENU", 5005, menuKey, 0);
  ZEL::cfg_set(key, ZEL::mkDataItem(ZEL::mkRbLong(1)), true);
  constexpr int kEntries = 500;
  std::string text;
  for (int i = 0; i < kEntries; ++i) text += i % 2 ? "enter 0/10389 \"12\"\n" : "enter 0/10389 \"13.5\"\n";
  text += "ok\n";
  const CDialogScript script = benchScript(text);
  for (auto _ : state) {
    std::ostringstream out, err;
    CScriptBackend backend(script, out, err);
    int code = 0;
    {
      CDialogBackendScope scope(backend);
      qenDlgEnv_st env;
      code = Entry(env);
    }
    if (code != 1 || backend.finish() != 0) state.SkipWithError(("the script failed: " + err.str()).c_str());
  }
  state.counters["per_entry"] =
      benchmark::Counter(kEntries, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_SealOpenWithPreviewAndClose(benchmark::State& state) { openAndClose<seal>(state); }
void BM_SiliconeOpenWithPreviewAndClose(benchmark::State& state) { openAndClose<silicone>(state); }
void BM_SealWidthEntry(benchmark::State& state) { widthEntries<seal>(state, L"DICHT"); }
void BM_SiliconeWidthEntry(benchmark::State& state) { widthEntries<silicone>(state, L"SILIKON"); }

BENCHMARK(BM_SealOpenWithPreviewAndClose)->Unit(benchmark::kMicrosecond)->UseRealTime()->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(BM_SiliconeOpenWithPreviewAndClose)->Unit(benchmark::kMicrosecond)->UseRealTime()->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(BM_SealWidthEntry)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_SiliconeWidthEntry)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

BENCHMARK_MAIN();
