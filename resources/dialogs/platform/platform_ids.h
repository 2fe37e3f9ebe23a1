// IDs of the platform's own dialogs (shared by platform.rc and the code).
#pragma once

#define IDD_MESSAGEBOX 32001
#define IDC_MSGBOX_ICON 20
#define IDC_MSGBOX_TEXT 65535
