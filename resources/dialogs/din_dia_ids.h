// Controls of the picture choice of a standard (template "DIN_DIA"): sixteen picture cells,
// the designations of the group's standards, paging.
#pragma once

#define IDD_DIN_DIA 10271

// The cells, row by row: IDC_DIN_DIA_CELL0 + 0 … + 15.
#define IDC_DIN_DIA_CELL0 11020
#define IDC_DIN_DIA_CELL15 11035
#define IDC_DIN_DIA_LIST 11040
#define IDC_DIN_DIA_PREV 11041
#define IDC_DIN_DIA_NEXT 11042
#define IDC_DIN_DIA_PAGE 11043
#define IDC_DIN_DIA_GROUP 11044
