// Controls, messages and menu commands of the labeling dialog (template 15076).
#pragma once

#define IDD_LABELING 15076

#define IDC_LBL_HEADER 10304
#define IDC_LBL_TABS 15007
#define IDC_LBL_PREVIEW 10005
#define IDC_LBL_SINGLE_LINE 10006
#define IDC_LBL_STANDARD_GROUP 10002
#define IDC_LBL_ADD 10008
#define IDC_LBL_REMOVE 1042
#define IDC_LBL_DEFAULT 10010
#define IDC_LBL_STANDARD 2000
#define IDC_LBL_SUPPL_GROUP 10007
#define IDC_LBL_USE_1 10016
#define IDC_LBL_USE_2 10017
#define IDC_LBL_COUNTRY 10301
#define IDC_LBL_SUPPL 2001
#define IDC_LBL_SAVE 10012
#define IDC_LBL_SAVE_LIST 10022
#define IDC_LBL_REMOVE_PRESET 10367

// Icons of the standard list's rows: a line break follows the item, or none does.
#define IDI_LBL_BREAK 10288
#define IDI_LBL_NO_BREAK 10289

// Messages the lists send the dialog.
#define WM_LBL_CHECKED 10107      // wParam row, lParam 1 checked / 0 unchecked
#define WM_LBL_DRAGGED 10149      // wParam source row, lParam target row
#define WM_LBL_STAND_SELECT 2000  // wParam row selected in the standard list
#define WM_LBL_SUPPL_EDITED 2001  // wParam entry whose in-place editing ended

// Context menu of the standard list.
#define ID_LBL_BREAK_OFF 10120
#define ID_LBL_BREAK_ON 10121
#define ID_LBL_MOVE_DOWN 10122
#define ID_LBL_MOVE_UP 10123
#define ID_LBL_MOVE_LAST 10124
#define ID_LBL_MOVE_FIRST 10125
// Context menu of the supplementary list.
#define ID_LBL_NEW 32769
#define ID_LBL_DELETE 32770
#define ID_LBL_IMPORT 32771
#define ID_LBL_SORT_UP 32772
#define ID_LBL_SORT_DOWN 32773
