// The private messages between the standard-parts dialog and its pages (sent to the dialog).
#pragma once

#include "ui/WinConst.h"

namespace qen {
// Select the properties tab.
constexpr UINT WM_NRM_GOTO_PROPS = WM_APP + 0x11;
// Refresh the properties page.
constexpr UINT WM_NRM_REFRESH_PROPS = WM_APP + 0x13;
// Refresh the dialog: texts, tree selection, preview, display options.
constexpr UINT WM_NRM_REFRESH_FRAME = WM_APP + 0x14;
// Draw the part whose data item is the lParam.
constexpr UINT WM_NRM_SHOW_PART = WM_APP + 0x16;
// Resolve the selection and draw the generated part (sent from outside the dialog).
constexpr UINT WM_NRM_PART_READY = WM_APP + 0x17;
// Both data-file pointers (lParam) for the dialog and its pages.
constexpr UINT WM_NRM_SET_FILES = WM_APP + 0x19;
}  // namespace qen
