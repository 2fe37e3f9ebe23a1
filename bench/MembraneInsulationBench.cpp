// How fast the membrane and insulation dialogs are, headless on the factory store: the
// entry function opening the dialog with its preview and closing it again; one thickness
// typed and handed over, with the store written and the preview drawn again.
#include "qen_mfc.h"

#include "accessories/CMembraneDlg.h"
#include "accessories/Insul.h"
#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "ui/CUserAction.h"

#include <benchmark/benchmark.h>

#include <functional>

namespace {

// Runs each dialog by code: `inside` acts on it while it is open, then it is cancelled.
class BenchBackend : public CDialogBackend {
public:
  std::function<void(CDialog&)> inside;

  void runModal(CDialog& dialog) override {
    if (inside) inside(dialog);
    if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
  }
  UINT trackPopupMenu(const CMenu&, CWnd*, CPoint) override { return 0; }
};

void factoryStore() { ZEL::cfgMgrPtr()->reset(ZEL::factorySettings()); }

template <int (*Entry)(qenDlgEnv_st&)>
void openAndClose(benchmark::State& state) {
  factoryStore();
  BenchBackend backend;
  CDialogBackendScope scope(backend);
  for (auto _ : state) {
    qenDlgEnv_st env;
    benchmark::DoNotOptimize(Entry(env));
  }
}

// Types one thickness after the other into the field and leaves it, inside one opened
// dialog: each time the value is stored, the tab refreshed and the preview drawn again.
template <class Dialog, int (*Entry)(qenDlgEnv_st&)>
void thicknessChange(benchmark::State& state) {
  factoryStore();
  BenchBackend backend;
  bool ran = false;
  backend.inside = [&](CDialog& dialog) {
    auto* dlg = dynamic_cast<Dialog*>(&dialog);
    if (!dlg) return;
    CWnd* field = dlg->propertiesTab().GetDlgItem(10382);
    if (!field) return;
    // The preview must really be drawn again: its description names the drawing's extents.
    const CZelString before = dlg->picture().picture();
    int i = 0;
    for (auto _ : state) {
      const std::string typed = CUserAction::type(*field, (++i % 2) ? L"2" : L"3");
      const std::string left = CUserAction::leave(*field);
      CWnd::pumpPostedMessages();  // as the message loop would: a refresh may have been posted
      if (!typed.empty() || !left.empty()) state.SkipWithError((typed + left).c_str());
    }
    if (dlg->picture().picture() == before) state.SkipWithError("the preview was not drawn again");
    ran = true;
  };
  CDialogBackendScope scope(backend);
  qenDlgEnv_st env;
  Entry(env);
  if (!ran) state.SkipWithError("the dialog did not open");
}

}  // namespace

BENCHMARK(openAndClose<qenDlgHzFo>)->Name("Membrane/OpenWithPreviewAndClose")->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(openAndClose<qenDlgDm>)->Name("Insulation/OpenWithPreviewAndClose")->Unit(benchmark::kMicrosecond)
    ->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(thicknessChange<CMembraneDlg, qenDlgHzFo>)->Name("Membrane/ThicknessChangeWithPreview")
    ->Unit(benchmark::kMicrosecond)->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(thicknessChange<Insul, qenDlgDm>)->Name("Insulation/ThicknessChangeWithPreview")
    ->Unit(benchmark::kMicrosecond)->Repetitions(9)->ReportAggregatesOnly(true);

BENCHMARK_MAIN();
