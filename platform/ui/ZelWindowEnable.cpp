#include "ui/ZelWindowEnable.h"

namespace ZEL {

namespace {
std::function<void(HWND, bool)>& enabler() {
  static std::function<void(HWND, bool)> fn;
  return fn;
}
}  // namespace

void windowEnable(HWND window, bool enable) {
  if (window && enabler()) enabler()(window, enable);
}

void setWindowEnabler(std::function<void(HWND, bool)> fn) { enabler() = std::move(fn); }

}  // namespace ZEL
