// Enabling and disabling a window by its handle, as the host commands do with the dialog
// that waits for them.
#pragma once

#include "ui/wintypes.h"

#include <functional>

namespace ZEL {

void windowEnable(HWND window, bool enable);
// Replaces how a handle is reached (none: the window of the control model); for tests.
void setWindowEnabler(std::function<void(HWND, bool)> enabler);

}  // namespace ZEL
