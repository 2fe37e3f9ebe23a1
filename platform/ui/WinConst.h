// Window messages, notification codes, styles and flags of the control model, with the
// numbers the window framework gives them, so that dialog code reads as MFC code does.
#pragma once

#include "ui/wintypes.h"

// --- window messages ---------------------------------------------------------------------
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_USER = 0x0400;
constexpr UINT WM_APP = 0x8000;

constexpr UINT DM_GETDEFID = WM_USER + 0;
constexpr UINT DM_SETDEFID = WM_USER + 1;

constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;
constexpr UINT BM_GETSTATE = 0x00F2;
constexpr UINT BM_SETSTATE = 0x00F3;
constexpr UINT BM_CLICK = 0x00F5;
constexpr UINT BM_GETIMAGE = 0x00F6;
constexpr UINT BM_SETIMAGE = 0x00F7;
constexpr UINT STM_SETICON = 0x0170;
constexpr UINT STM_GETICON = 0x0171;
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_RESETCONTENT = 0x014B;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr UINT LB_RESETCONTENT = 0x0184;
constexpr UINT LB_SETCURSEL = 0x0186;
constexpr UINT LB_GETCURSEL = 0x0188;
constexpr UINT LB_GETCOUNT = 0x018B;
constexpr UINT TCM_GETITEMCOUNT = 0x1304;
constexpr UINT TCM_GETCURSEL = 0x130B;
constexpr UINT TCM_SETCURSEL = 0x130C;

constexpr UINT IMAGE_BITMAP = 0;
constexpr UINT IMAGE_ICON = 1;

// --- notification codes (WM_COMMAND high word, NMHDR::code) --------------------------------
constexpr UINT BN_CLICKED = 0;
constexpr UINT BN_DOUBLECLICKED = 5;
constexpr UINT BN_SETFOCUS = 6;
constexpr UINT BN_KILLFOCUS = 7;
constexpr UINT STN_CLICKED = 0;
constexpr UINT STN_DBLCLK = 1;
constexpr UINT EN_SETFOCUS = 0x0100;
constexpr UINT EN_KILLFOCUS = 0x0200;
constexpr UINT EN_CHANGE = 0x0300;
constexpr UINT EN_UPDATE = 0x0400;
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_DBLCLK = 2;
constexpr UINT CBN_SETFOCUS = 3;
constexpr UINT CBN_KILLFOCUS = 4;
constexpr UINT CBN_EDITCHANGE = 5;
constexpr UINT CBN_EDITUPDATE = 6;
constexpr UINT CBN_SELENDOK = 9;
constexpr UINT LBN_SELCHANGE = 1;
constexpr UINT LBN_DBLCLK = 2;
constexpr UINT LBN_SETFOCUS = 4;
constexpr UINT LBN_KILLFOCUS = 5;
constexpr UINT CLBN_CHKCHANGE = 40;

constexpr UINT NM_CLICK = 0U - 2U;
constexpr UINT NM_DBLCLK = 0U - 3U;
constexpr UINT NM_RETURN = 0U - 4U;
constexpr UINT NM_RCLICK = 0U - 5U;
constexpr UINT NM_SETFOCUS = 0U - 7U;
constexpr UINT NM_KILLFOCUS = 0U - 8U;
constexpr UINT LVN_ITEMCHANGING = 0U - 100U;
constexpr UINT LVN_ITEMCHANGED = 0U - 101U;
constexpr UINT LVN_DELETEITEM = 0U - 103U;
constexpr UINT LVN_BEGINDRAG = 0U - 109U;
constexpr UINT LVN_KEYDOWN = 0U - 155U;
constexpr UINT LVN_BEGINLABELEDIT = 0U - 175U;
constexpr UINT LVN_ENDLABELEDIT = 0U - 176U;
constexpr UINT TVN_ITEMCHANGED = 0U - 419U;
constexpr UINT TVN_SELCHANGING = 0U - 450U;
constexpr UINT TVN_SELCHANGED = 0U - 451U;
constexpr UINT TVN_ITEMEXPANDED = 0U - 455U;
constexpr UINT TCN_SELCHANGE = 0U - 551U;
constexpr UINT TCN_SELCHANGING = 0U - 552U;

// --- dialog results and message boxes ------------------------------------------------------
constexpr INT_PTR IDABORT = 3;
constexpr INT_PTR IDRETRY = 4;
constexpr INT_PTR IDIGNORE = 5;
constexpr INT_PTR IDYES = 6;
constexpr INT_PTR IDNO = 7;
constexpr int IDC_STATIC = -1;

constexpr UINT MB_OK = 0x0;
constexpr UINT MB_OKCANCEL = 0x1;
constexpr UINT MB_ABORTRETRYIGNORE = 0x2;
constexpr UINT MB_YESNOCANCEL = 0x3;
constexpr UINT MB_YESNO = 0x4;
constexpr UINT MB_RETRYCANCEL = 0x5;
constexpr UINT MB_TYPEMASK = 0xF;
constexpr UINT MB_ICONERROR = 0x10;
constexpr UINT MB_ICONSTOP = 0x10;
constexpr UINT MB_ICONQUESTION = 0x20;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_ICONWARNING = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr UINT MB_ICONMASK = 0xF0;
constexpr UINT MB_DEFBUTTON2 = 0x100;
constexpr UINT MB_DEFBUTTON3 = 0x200;
constexpr UINT MB_TASKMODAL = 0x2000;

// --- window styles ---------------------------------------------------------------------------
constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_HSCROLL = 0x00100000;
constexpr DWORD WS_SYSMENU = 0x00080000;
constexpr DWORD WS_GROUP = 0x00020000;
constexpr DWORD WS_TABSTOP = 0x00010000;

constexpr DWORD DS_MODALFRAME = 0x80;
constexpr DWORD DS_CONTROL = 0x400;

constexpr DWORD BS_PUSHBUTTON = 0x0;
constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
constexpr DWORD BS_CHECKBOX = 0x2;
constexpr DWORD BS_AUTOCHECKBOX = 0x3;
constexpr DWORD BS_RADIOBUTTON = 0x4;
constexpr DWORD BS_3STATE = 0x5;
constexpr DWORD BS_AUTO3STATE = 0x6;
constexpr DWORD BS_GROUPBOX = 0x7;
constexpr DWORD BS_AUTORADIOBUTTON = 0x9;
constexpr DWORD BS_TYPEMASK = 0xF;
constexpr DWORD BS_ICON = 0x40;
constexpr DWORD BS_BITMAP = 0x80;
constexpr DWORD BS_PUSHLIKE = 0x1000;
constexpr DWORD BS_NOTIFY = 0x4000;

constexpr DWORD SS_LEFT = 0x0;
constexpr DWORD SS_CENTER = 0x1;
constexpr DWORD SS_RIGHT = 0x2;
constexpr DWORD SS_ICON = 0x3;
constexpr DWORD SS_BLACKRECT = 0x4;
constexpr DWORD SS_BLACKFRAME = 0x7;
constexpr DWORD SS_GRAYFRAME = 0x8;
constexpr DWORD SS_WHITEFRAME = 0x9;
constexpr DWORD SS_OWNERDRAW = 0xD;
constexpr DWORD SS_BITMAP = 0xE;
constexpr DWORD SS_ETCHEDFRAME = 0x12;
constexpr DWORD SS_TYPEMASK = 0x1F;
constexpr DWORD SS_NOTIFY = 0x100;
constexpr DWORD SS_SUNKEN = 0x1000;

constexpr DWORD ES_MULTILINE = 0x4;
constexpr DWORD ES_PASSWORD = 0x20;
constexpr DWORD ES_AUTOHSCROLL = 0x80;
constexpr DWORD ES_READONLY = 0x800;
constexpr DWORD ES_WANTRETURN = 0x1000;
constexpr DWORD ES_NUMBER = 0x2000;

constexpr DWORD CBS_SIMPLE = 0x1;
constexpr DWORD CBS_DROPDOWN = 0x2;
constexpr DWORD CBS_DROPDOWNLIST = 0x3;
constexpr DWORD CBS_SORT = 0x100;

constexpr DWORD LBS_NOTIFY = 0x1;
constexpr DWORD LBS_SORT = 0x2;
constexpr DWORD LBS_MULTIPLESEL = 0x8;
constexpr DWORD LBS_OWNERDRAWFIXED = 0x10;
constexpr DWORD LBS_HASSTRINGS = 0x40;
constexpr DWORD LBS_EXTENDEDSEL = 0x800;

constexpr DWORD TVS_CHECKBOXES = 0x100;
constexpr DWORD LVS_REPORT = 0x1;
constexpr DWORD LVS_SINGLESEL = 0x4;
constexpr DWORD LVS_EDITLABELS = 0x200;
constexpr DWORD LVS_EX_GRIDLINES = 0x1;
constexpr DWORD LVS_EX_CHECKBOXES = 0x4;
constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;

// --- control states and flags ------------------------------------------------------------------
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOW = 5;
constexpr int SW_SHOWNA = 8;

constexpr int BST_UNCHECKED = 0;
constexpr int BST_CHECKED = 1;
constexpr int BST_INDETERMINATE = 2;
constexpr int BST_PUSHED = 4;

constexpr int CB_ERR = -1;
constexpr int LB_ERR = -1;

constexpr UINT LVIS_FOCUSED = 0x1;
constexpr UINT LVIS_SELECTED = 0x2;
constexpr UINT LVIS_STATEIMAGEMASK = 0xF000;
constexpr UINT LVIF_TEXT = 0x1;
constexpr UINT LVIF_IMAGE = 0x2;
constexpr UINT LVIF_PARAM = 0x4;
constexpr UINT LVIF_STATE = 0x8;
constexpr UINT LVNI_ALL = 0x0;
constexpr UINT LVNI_FOCUSED = 0x1;
constexpr UINT LVNI_SELECTED = 0x2;
constexpr int LVCFMT_LEFT = 0;
constexpr int LVSIL_NORMAL = 0;
constexpr int LVSIL_SMALL = 1;
constexpr int LVSIL_STATE = 2;
constexpr UINT LVIR_BOUNDS = 0;

constexpr UINT TVE_COLLAPSE = 0x1;
constexpr UINT TVE_EXPAND = 0x2;
constexpr UINT TVE_TOGGLE = 0x3;
constexpr UINT TVGN_ROOT = 0x0;
constexpr UINT TVGN_NEXT = 0x1;
constexpr UINT TVGN_PREVIOUS = 0x2;
constexpr UINT TVGN_PARENT = 0x3;
constexpr UINT TVGN_CHILD = 0x4;
constexpr UINT TVGN_CARET = 0x9;
constexpr UINT TVC_UNKNOWN = 0x0;
constexpr UINT TVC_BYMOUSE = 0x1;
constexpr UINT TVC_BYKEYBOARD = 0x2;

constexpr UINT TCIF_TEXT = 0x1;
constexpr UINT TCIF_IMAGE = 0x2;
constexpr UINT TCIF_PARAM = 0x8;

constexpr UINT MF_STRING = 0x0;
constexpr UINT MF_ENABLED = 0x0;
constexpr UINT MF_UNCHECKED = 0x0;
constexpr UINT MF_BYCOMMAND = 0x0;
constexpr UINT MF_GRAYED = 0x1;
constexpr UINT MF_DISABLED = 0x2;
constexpr UINT MF_CHECKED = 0x8;
constexpr UINT MF_POPUP = 0x10;
constexpr UINT MF_BYPOSITION = 0x400;
constexpr UINT MF_SEPARATOR = 0x800;
constexpr UINT TPM_LEFTALIGN = 0x0;
constexpr UINT TPM_RIGHTBUTTON = 0x2;
constexpr UINT TPM_NONOTIFY = 0x80;
constexpr UINT TPM_RETURNCMD = 0x100;

constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_F1 = 0x70;
constexpr UINT VK_F2 = 0x71;
constexpr UINT MK_LBUTTON = 0x1;

constexpr WPARAM MAKEWPARAM(UINT lo, UINT hi) { return static_cast<WPARAM>((lo & 0xFFFF) | ((hi & 0xFFFF) << 16)); }
constexpr LPARAM MAKELPARAM(int lo, int hi) {
  return static_cast<LPARAM>(static_cast<std::uint32_t>((lo & 0xFFFF) | ((hi & 0xFFFF) << 16)));
}
constexpr UINT LOWORD(std::uintptr_t v) { return static_cast<UINT>(v & 0xFFFF); }
constexpr UINT HIWORD(std::uintptr_t v) { return static_cast<UINT>((v >> 16) & 0xFFFF); }
constexpr int GET_X_LPARAM(LPARAM l) { return static_cast<short>(l & 0xFFFF); }
constexpr int GET_Y_LPARAM(LPARAM l) { return static_cast<short>((l >> 16) & 0xFFFF); }

// Names for traces and failures: "WM_COMMAND", "EN_KILLFOCUS" (by the message that carries it).
const char* winMessageName(UINT message);
const char* winNotifyName(UINT message, UINT code, int controlKind);
