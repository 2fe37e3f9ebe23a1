// Controls of the setting-block dialog (template 10217) and its properties tab (15104).
#pragma once

#define IDD_BLOCK 10217
#define IDD_BLOCK_TAB 15104

// The main dialog; the shared controls (OK, Cancel, help, L, S, B, +, -, preview, sheared
// mark, label line, tabs, representation group and "Kontur") have their common numbers.
#define IDC_BLOCK_STANDARD 10401
#define IDC_BLOCK_HATCHED 10318

// The properties tab.
#define IDC_BLOCK_SCREEN 10388
#define IDC_BLOCK_WIDTH_LABEL 10387
#define IDC_BLOCK_WIDTH 10389
#define IDC_BLOCK_HEIGHT_LABEL 10381
#define IDC_BLOCK_HEIGHT 10390
#define IDC_BLOCK_CHAMFER_CHECK 10434
#define IDC_BLOCK_CHAMFER 10391
#define IDC_BLOCK_CORNER1 10438
#define IDC_BLOCK_CORNER2 10441
#define IDC_BLOCK_CORNER4 10442
#define IDC_BLOCK_CORNER8 10440
#define IDC_BLOCK_MATERIAL 10411
#define IDC_BLOCK_MATERIAL_TEXT 10311
#define IDC_BLOCK_ARTICLE 10323
#define IDC_BLOCK_ARTICLE_TEXT 10324
