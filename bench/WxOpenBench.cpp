// How long a dialog takes to appear in a window: from the call of DoModal to the window's
// first paint, for the test dialog (tabs, lists, tree, list view, preview) and the dialog of
// 150 controls. The first opening of the process (fonts and theme still to load) is shown
// apart from the median and maximum of further openings. Needs a display (DISPLAY or
// xvfb-run -a).
#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxDialogWindow.h"
#include "tests/support/TestDialogs.h"
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

void report(const char* name, CWxBackend& backend, const std::function<std::unique_ptr<CDialog>()>& make) {
  double first = openOnce(backend, make);
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) times.push_back(openOnce(backend, make));
  std::sort(times.begin(), times.end());
  std::printf("%-28s first %7.1f ms   median %7.1f ms   max %7.1f ms   (%d openings)\n", name, first,
              times[times.size() / 2], times.back(), kRuns);
}

}  // namespace

int main() {
  if (!CWxBackend::start()) {
    std::fprintf(stderr, "no display: run it with DISPLAY set or under xvfb-run -a\n");
    return 1;
  }
  CWxBackend backend(std::cout, std::cerr);
  CDialogBackendScope scope(backend);
  std::printf("DoModal to first paint\n");
  report("test dialog (tabs, lists)", backend, [] { return std::make_unique<CTestMainDlg>(); });
  report("150 controls", backend, [] { return std::make_unique<CDialog>(kBench150); });
  return 0;
}
