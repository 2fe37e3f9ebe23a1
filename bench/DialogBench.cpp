// How fast the control model and the scripted backend are: a dialog of 150 controls created
// from its template, initialised and closed; a dialog script of 10,000 commands.
#include "BenchScript.h"
#include "ui/CDialog.h"
#include "ui/CDialogTemplates.h"
#include "ui/CRcParser.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

constexpr UINT kBench150 = 30200;

// Creating the dialog and its 150 controls from the (already read) template, OnInitDialog,
// the modal loop with an empty script, which cancels it, and destroying it again.
void BM_Dialog150CreateInitClose(benchmark::State& state) {
  CDialogTemplates::get(kBench150);
  std::ostringstream out, err;
  CScriptBackend backend(CDialogScript{}, out, err);
  CDialogBackendScope scope(backend);
  for (auto _ : state) {
    CDialog dlg(kBench150);
    benchmark::DoNotOptimize(dlg.DoModal());
  }
}
BENCHMARK(BM_Dialog150CreateInitClose)->Unit(benchmark::kMicrosecond);

// A script of 10,000 commands (typing, clicks, checks) on the 150-control dialog.
void BM_Script10000Commands(benchmark::State& state) {
  std::string text;
  for (int i = 0; i < 1000; ++i)
    text +=
        "type 20001 \"abc\"\nclick 20002\nexpect 20002 checked\nclick 20002\nexpect 20001 text \"abc\"\n"
        "click 20005\nexpect 20005 checked\nleave 20001\nclick 20003\nexpect 20003 enabled\n";
  text += "ok\n";
  CDialogScript script = benchScript(text);
  for (auto _ : state) {
    std::ostringstream out, err;
    CScriptBackend backend(script, out, err);
    CDialogBackendScope scope(backend);
    CDialog dlg(kBench150);
    INT_PTR r = dlg.DoModal();
    if (r != IDOK || backend.finish() != 0) state.SkipWithError(("the script failed: " + err.str()).c_str());
  }
  state.counters["commands"] = static_cast<double>(script.commands().size());
}
BENCHMARK(BM_Script10000Commands)->Unit(benchmark::kMillisecond);

// Reading the resource script of the 150-control dialog (done once per program run).
void BM_Parse150ControlTemplate(benchmark::State& state) {
  const CDialogTemplate& t = CDialogTemplates::get(kBench150);
  std::string text = "#define IDD_BENCH_150 30200\nIDD_BENCH_150 DIALOGEX 0, 0, 600, 400\nBEGIN\n";
  for (const auto& c : t.controls) text += "  CONTROL \"x\", " + std::to_string(c.id) + ", \"Button\", BS_AUTOCHECKBOX | WS_TABSTOP, 1, 2, 40, 10\n";
  text += "END\n";
  for (auto _ : state) {
    CRcParser parser;
    std::vector<CDialogTemplate> out;
    std::string error;
    benchmark::DoNotOptimize(parser.parse(text, "bench.rc", out, error));
  }
}
BENCHMARK(BM_Parse150ControlTemplate)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
