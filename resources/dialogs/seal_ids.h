// Controls of the seal dialog (template 10216) and its properties tab (15103).
#pragma once

#define IDD_SEAL 10216
#define IDD_SEAL_TAB 15103

// The main dialog; the shared controls (OK, Cancel, help, L, S, B, +, -, preview, sheared
// mark, label line, tabs, representation group and "Kontur") have their common numbers.
#define IDC_SEAL_HATCHED 10317

// The properties tab.
#define IDC_SEAL_SCREEN 10388
#define IDC_SEAL_WIDTH_LABEL 10387
#define IDC_SEAL_WIDTH 10389
#define IDC_SEAL_HEIGHT_LABEL 10453
#define IDC_SEAL_HEIGHT 10390
#define IDC_SEAL_MATERIAL 10411
#define IDC_SEAL_MATERIAL_TEXT 10311
#define IDC_SEAL_ARTICLE 10323
#define IDC_SEAL_ARTICLE_TEXT 10324
