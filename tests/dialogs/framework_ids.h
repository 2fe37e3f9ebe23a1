// IDs of the framework test dialogs (a main dialog with two tab pages).
#pragma once

#define IDD_FW_MAIN 30300
#define IDD_FW_PAGE_A 30301
#define IDD_FW_PAGE_B 30302

#define IDC_FW_TABS 15007
#define IDC_FW_GROUP 10332
#define IDC_FW_CONTOUR 10333
#define IDC_FW_FAV 10295
#define IDC_FW_SUBDLG 30310
#define IDC_FW_PAGE_A_BTN 30311
#define IDC_FW_PAGE_B_BTN 30312
