// IDs of the item dialog "OBJ_ORDER" (shared by obj_order.rc and CQenItemDlg).
#pragma once

#define IDD_OBJ_ORDER 10264
#define IDC_OBJ_ORDER_LABEL 10772
#define IDC_OBJ_ORDER_ARTICLE 10773
#define IDC_OBJ_ORDER_HELP 9
