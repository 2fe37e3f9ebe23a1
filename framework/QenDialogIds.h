// Control identifiers and private messages that mean the same in every dialog that has them.
#pragma once

#include "ui/wintypes.h"

namespace qen {

// Buttons and statics shared by the main dialogs.
constexpr int IDC_FAV_SAVE = 10295;       // "+": save the settings as the type's favourite
constexpr int IDC_FAV_RESTORE = 10297;    // "-": restore the favourite
constexpr int IDC_ASSIGN_LAYER = 10294;   // "L"
constexpr int IDC_ASSIGN_HATCH = 10334;   // "S"
constexpr int IDC_ASSIGN_LABEL = 10335;   // "B"
constexpr int IDC_PREVIEW = 10379;
constexpr int IDC_SHEARED_ICON = 10410;
constexpr int IDC_SHEARED_TEXT = 10319;
constexpr int IDC_OBJ_LABEL = 11008;
constexpr int IDC_TABS = 15007;
constexpr int IDC_REPR_GROUP = 10332;
constexpr int IDC_REPR_CONTOUR = 10333;
constexpr int IDC_SAVE_SETTING = 10366;   // "Einstellung speichern"
constexpr int IDC_REMOVE_PRESET = 10367;  // "Voreinstellungen entfernen"

// Icons of the shared buttons.
constexpr UINT IDI_ASSIGN_LAYER = 10308;
constexpr UINT IDI_ASSIGN_HATCH = 10304;
constexpr UINT IDI_ASSIGN_LABEL = 10305;
constexpr UINT IDI_FAV_SAVE = 10321;
constexpr UINT IDI_FAV_RESTORE = 10322;
constexpr UINT IDI_SHEARED = 10112;

// Messages a page sends to its main dialog (the parent of its parent, the tab control
// standing between them).
constexpr UINT WM_QEN_REFRESH = 32786;       // recompute state line and preview, refresh the pages
constexpr UINT WM_QEN_OBJECT = 32793;        // l-parameter: the object data item to work on
constexpr UINT WM_QEN_REFRESH_PAGE = 10112;  // a properties page refreshes itself

}  // namespace qen
