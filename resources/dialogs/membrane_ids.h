// Controls of the membrane dialog (template 10226) and its properties tab (15070).
#pragma once

#define IDD_MEMBRANE 10226
#define IDD_MEMBRANE_TAB 15070

// The main dialog; the shared controls (OK, Cancel, help, L, S, B, +, -, preview, sheared
// mark, label line, tabs, representation group and "Kontur") have their common numbers.
#define IDC_MEMBRANE_FILLED 10402
#define IDC_MEMBRANE_LINED 10318
#define IDC_MEMBRANE_HATCHED 10317
#define IDC_MEMBRANE_CONS_GROUP 10331
#define IDC_MEMBRANE_CONS_NORMAL 10280
#define IDC_MEMBRANE_CONS_FIT 10315
#define IDC_MEMBRANE_CONS_PICK 10316

// The properties tab.
#define IDC_MEMBRANE_THICKNESS_LABEL 10198
#define IDC_MEMBRANE_THICKNESS 10382
#define IDC_MEMBRANE_RADIUS_LABEL 10381
#define IDC_MEMBRANE_RADIUS 10383
#define IDC_MEMBRANE_DIVISION_LABEL 10380
#define IDC_MEMBRANE_DIVISION 10384
#define IDC_MEMBRANE_MATERIAL 10411
#define IDC_MEMBRANE_MATERIAL_TEXT 10311
#define IDC_MEMBRANE_ARTICLE 10323
#define IDC_MEMBRANE_ARTICLE_TEXT 10324
