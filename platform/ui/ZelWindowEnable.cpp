#include "ui/ZelWindowEnable.h"

#include "ui/CWnd.h"

namespace ZEL {

namespace {
std::function<void(HWND, bool)>& enabler() {
  static std::function<void(HWND, bool)> fn;
  return fn;
}
}  // namespace

void windowEnable(HWND window, bool enable) {
  if (!window) return;
  if (enabler()) enabler()(window, enable);
  else CWnd::FromHandle(window)->EnableWindow(enable ? TRUE : FALSE);
}

void setWindowEnabler(std::function<void(HWND, bool)> fn) { enabler() = std::move(fn); }

}  // namespace ZEL
