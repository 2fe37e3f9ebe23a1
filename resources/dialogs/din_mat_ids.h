// Controls of the material-types dialog of a standard part (template 10270 "DIN_MAT").
#pragma once

#define IDD_DIN_MAT 10270

#define IDC_DIN_MAT_TITLE 10781
#define IDC_DIN_MAT_LIST 10782
#define IDC_DIN_MAT_ADD 10379
#define IDC_DIN_MAT_REMOVE 10380
#define IDC_DIN_MAT_TREE 10783
#define IDC_DIN_MAT_HELP 9
