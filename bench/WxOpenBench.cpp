// How long a dialog takes to appear in a window: from the call of DoModal to the window's
// first paint, for the test dialog (tabs, lists, tree, list view, preview), the dialog of
// 150 controls, and the six accessory dialogs through their entry functions on the
// factory settings. The first opening of the process (fonts and theme still to load) is
// shown apart from the median and maximum of further openings. Needs a display (DISPLAY or
// xvfb-run -a). Arguments name the cases to run (test, 150, klotz, seal, silicone, membrane,
// insulation, axis); none: all.
#include "qen_mfc.h"

#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxDialogWindow.h"
#include "tests/support/TestDialogs.h"
#include "data/CConfig.h"
#include "data/ZelFactorySettings.h"
#include "ui/CDialog.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr UINT kBench150 = 30200;
constexpr int kRuns = 20;

// Opens the dialog, ends it once it has painted, and gives the time to that paint.
double openOnce(CWxBackend& backend, const std::function<std::unique_ptr<CDialog>()>& make) {
  double painted = -1;
  std::unique_ptr<CDialog> dialog = make();
  CDialog* d = dialog.get();
  backend.onShown = [&](CWxDialogWindow& window, double ms) {
    painted = ms;
    window.CallAfter([&backend, d] {
      backend.userAction([d] {
        d->EndDialog(IDCANCEL);
        return std::string();
      });
    });
  };
  d->DoModal();
  backend.onShown = nullptr;
  return painted;
}

// Calls an entry function, ends its dialog once it has painted, and gives the time to that paint.
double openEntryOnce(CWxBackend& backend, const std::function<int()>& entry) {
  double painted = -1;
  backend.onShown = [&](CWxDialogWindow& window, double ms) {
    painted = ms;
    CDialog* d = &window.dialog();
    window.CallAfter([&backend, d] {
      backend.userAction([d] {
        d->EndDialog(IDCANCEL);
        return std::string();
      });
    });
  };
  entry();
  backend.onShown = nullptr;
  return painted;
}

void report(const char* name, const std::function<double()>& open) {
  double first = open();
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) times.push_back(open());
  std::sort(times.begin(), times.end());
  std::printf("%-28s first %7.1f ms   median %7.1f ms   max %7.1f ms   (%d openings)\n", name, first,
              times[times.size() / 2], times.back(), kRuns);
}

}  // namespace

int main(int argc, char** argv) {
  if (!CWxBackend::start()) {
    std::fprintf(stderr, "no display: run it with DISPLAY set or under xvfb-run -a\n");
    return 1;
  }
  std::vector<std::string> chosen(argv + 1, argv + argc);
  auto wanted = [&](const char* name) { return chosen.empty() || std::find(chosen.begin(), chosen.end(), name) != chosen.end(); };
  ZEL::cfgMgrPtr()->reset(ZEL::factorySettings());
  CWxBackend backend(std::cout, std::cerr);
  CDialogBackendScope scope(backend);
  std::printf("DoModal to first paint\n");
  if (wanted("test"))
    report("test dialog (tabs, lists)", [&] { return openOnce(backend, [] { return std::make_unique<CTestMainDlg>(); }); });
  if (wanted("150"))
    report("150 controls", [&] { return openOnce(backend, [] { return std::make_unique<CDialog>(kBench150); }); });
  if (wanted("klotz")) {
    report("setting block (qenDlgHzKl)", [&] {
      return openEntryOnce(backend, [] {
        qenDlgEnv_st env;
        return qenDlgHzKl(env);
      });
    });
  }
  if (wanted("seal"))
    report("seal (qenDlgHzDi)", [&] { return openEntryOnce(backend, [] { qenDlgEnv_st env; return qenDlgHzDi(env); }); });
  if (wanted("silicone"))
    report("silicone joint (qenDlgHzSi)", [&] { return openEntryOnce(backend, [] { return qenDlgHzSi(qenDlgEnv_st{}); }); });
  if (wanted("membrane"))
    report("membrane (qenDlgHzFo)", [&] { return openEntryOnce(backend, [] { qenDlgEnv_st env; return qenDlgHzFo(env); }); });
  if (wanted("insulation"))
    report("insulation (qenDlgDm)", [&] { return openEntryOnce(backend, [] { qenDlgEnv_st env; return qenDlgDm(env); }); });
  if (wanted("axis"))
    report("axis symbol (qenDlgAxis)", [&] { return openEntryOnce(backend, [] { return qenDlgAxis(qenDlgEnv_st{}); }); });
  return 0;
}
