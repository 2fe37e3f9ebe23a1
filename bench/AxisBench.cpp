// How fast the axis-symbol dialog is, headless on the factory settings: opening it through
// its entry function (the snapshot of "*AXIS*", the dialog, its refresh and preview) and
// closing it with Cancel (the snapshot put back); and one length typed and left, which
// stores it, refreshes the dialog and draws the preview again.
#include "qen_mfc.h"

#include "backend/CDialogBackend.h"
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "ui/CDialog.h"
#include "ui/CStatic.h"
#include "ui/CUserAction.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace {

constexpr int kLength = 10699;
constexpr int kPreview = 10706;

// Runs an action inside the open dialog, then cancels it.
class CActionBackend : public CDialogBackend {
public:
  explicit CActionBackend(std::function<void(CDialog&)> act) : m_act(std::move(act)) {}
  void runModal(CDialog& dialog) override {
    if (m_act) m_act(dialog);
    if (!dialog.isEnded()) dialog.EndDialog(IDCANCEL);
  }
  UINT trackPopupMenu(const CMenu&, CWnd*, CPoint) override { return 0; }

private:
  std::function<void(CDialog&)> m_act;
};

void factoryStore() { ZEL::cfgMgrPtr()->reset(ZEL::factorySettings()); }

void BM_AxisOpenWithPreviewAndClose(benchmark::State& state) {
  factoryStore();
  CActionBackend backend(nullptr);
  CDialogBackendScope scope(backend);
  const qenDlgEnv_st env;
  for (auto _ : state) benchmark::DoNotOptimize(qenDlgAxis(env));
}
BENCHMARK(BM_AxisOpenWithPreviewAndClose)->Unit(benchmark::kMicrosecond);

// The timed loop runs inside one open dialog: each round a new length is typed and the
// field left, as a person does it.
void BM_AxisLengthChangeWithPreview(benchmark::State& state) {
  factoryStore();
  bool drawn = true;
  CActionBackend backend([&](CDialog& dialog) {
    CWnd& length = dialog.control(kLength);
    int round = 0;
    for (auto _ : state) {
      const std::wstring text = std::to_wstring(40 + (round++ % 50));
      CUserAction::type(length, text.c_str());
      CUserAction::leave(length);
    }
    drawn = !dialog.staticCtrl(kPreview).picture().isEmpty();
    double stored = 0.0;
    if (CZelDataItem* len = ZEL::cfg_get(L"*AXIS*\\LEN")) len->get(stored);
    if (round > 1 && stored == 50.0) drawn = false;
  });
  CDialogBackendScope scope(backend);
  qenDlgAxis(qenDlgEnv_st{});
  if (!drawn) state.SkipWithError("the length was not stored or the preview not drawn");
}
BENCHMARK(BM_AxisLengthChangeWithPreview)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
