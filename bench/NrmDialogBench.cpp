// How fast the standard-parts dialog answers, headless on the shipped catalogue: opening it
// through qenNormMenu on a selected screw (the tree built, the part generated, the
// preview drawn, the properties and dimensions filled), then closing it; and one change
// of the nominal size (the size handler, the length rules, the part generated and drawn
// again, the properties refresh); and one search for "*" on the search tab.
#include "BenchScript.h"
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelFactorySettings.h"
#include "norm/ZelNormGen.h"
#include "qen_mfc.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace {

void prepareStore() {
  setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  std::unique_ptr<CZelDataItem> nm(CStoreFile::parse(
      R"({"STACK": ["PIECE", "SCREW", "HEX", "ISO4017"], "ND": "M12", "MAT": "8.8", "LEN": 60.0})", "bench"));
  ZEL::cfg_set(CZelDataKey(L"*NM*"), nm.release(), true);
}

double runEntry(const CDialogScript& script) {
  return timedRun(
      script,
      [] {
        qenDlgEnv_st env;
        return qenNormMenu(env, 0, false, false, nullptr);
      },
      1);
}

// Open with tree, generation and preview, then OK.
void BM_NrmOpenWithTreeAndPreviewAndClose(benchmark::State& state) {
  prepareStore();
  const CDialogScript script = benchScript("ok\n");
  runEntry(script);  // the catalogue is opened and read once per process
  for (auto _ : state) state.SetIterationTime(runEntry(script));
}
BENCHMARK(BM_NrmOpenWithTreeAndPreviewAndClose)->UseManualTime()->Unit(benchmark::kMillisecond);

// One nominal-size change: a run of 100 changes less a run that only opens and closes,
// per change.
void BM_NrmSizeChange(benchmark::State& state) {
  prepareStore();
  constexpr int kChanges = 100;
  std::string text;
  for (int i = 0; i < kChanges; ++i) text += std::string("select 0/10778 \"") + (i % 2 ? "M12" : "M16") + "\"\n";
  const CDialogScript changes = benchScript(text + "ok\n");
  const CDialogScript none = benchScript("ok\n");
  runEntry(none);
  for (auto _ : state) {
    const double base = runEntry(none);
    const double all = runEntry(changes);
    state.SetIterationTime((all - base) / kChanges);
  }
}
BENCHMARK(BM_NrmSizeChange)->UseManualTime()->Unit(benchmark::kMillisecond);

// One search for "*" on the search tab: the catalogue searched, the result list filled with
// designations and titles, the first result's picture drawn; per search, as above.
void BM_NrmSearchAll(benchmark::State& state) {
  prepareStore();
  constexpr int kSearches = 50;
  std::string text = "tab 1\nenter 1/10785 \"*\"\n";
  for (int i = 0; i < kSearches; ++i) text += "click 1/10786\n";
  const CDialogScript searches = benchScript(text + "ok\n");
  const CDialogScript none = benchScript("tab 1\nenter 1/10785 \"*\"\nok\n");
  runEntry(none);
  for (auto _ : state) {
    const double base = runEntry(none);
    const double all = runEntry(searches);
    state.SetIterationTime((all - base) / kSearches);
  }
}
BENCHMARK(BM_NrmSearchAll)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
BENCHMARK_MAIN();
