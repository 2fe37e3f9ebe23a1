// IDs of the material tree dialog (shared by mattree.rc and CZelMatTreeDlg).
#pragma once

#define IDD_ZEL_MATTREE 32003
#define IDC_MATTREE_TREE 32030
#define IDC_MATTREE_LABEL 32031
#define IDC_MATTREE_HELP 9
