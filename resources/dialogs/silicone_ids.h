// Controls of the silicone dialog (template 10219) and its properties tab (15092).
#pragma once

#define IDD_SILICONE 10219
#define IDD_SILICONE_TAB 15092

// The main dialog; the shared controls (OK, Cancel, help, L, S, B, +, -, preview, sheared
// mark, label line, tabs, representation group) have their common numbers.
#define IDC_SILICONE_VARIANT_GROUP 10391
#define IDC_SILICONE_CORD 10395
#define IDC_SILICONE_VARIANT1 10392
#define IDC_SILICONE_VARIANT2 10393
#define IDC_SILICONE_VARIANT3 10394
#define IDC_SILICONE_HATCH 10398
#define IDC_SILICONE_HATCH2 10399

// The properties tab.
#define IDC_SILICONE_SCREEN 10400
#define IDC_SILICONE_WIDTH_LABEL 10387
#define IDC_SILICONE_WIDTH 10389
#define IDC_SILICONE_ANGLE_LABEL 10380
#define IDC_SILICONE_ANGLE 10130
#define IDC_SILICONE_MATERIAL 10411
#define IDC_SILICONE_MATERIAL_TEXT 10311
#define IDC_SILICONE_ARTICLE 10323
#define IDC_SILICONE_ARTICLE_TEXT 10324
