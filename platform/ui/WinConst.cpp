#include "ui/WinConst.h"

#include "ui/CWnd.h"

const char* winMessageName(UINT message) {
  switch (message) {
    case WM_SETFOCUS: return "WM_SETFOCUS";
    case WM_KILLFOCUS: return "WM_KILLFOCUS";
    case WM_SETTEXT: return "WM_SETTEXT";
    case WM_CLOSE: return "WM_CLOSE";
    case WM_NOTIFY: return "WM_NOTIFY";
    case WM_CONTEXTMENU: return "WM_CONTEXTMENU";
    case WM_KEYDOWN: return "WM_KEYDOWN";
    case WM_COMMAND: return "WM_COMMAND";
    case WM_MOUSEMOVE: return "WM_MOUSEMOVE";
    case WM_LBUTTONDOWN: return "WM_LBUTTONDOWN";
    case WM_LBUTTONUP: return "WM_LBUTTONUP";
    case WM_LBUTTONDBLCLK: return "WM_LBUTTONDBLCLK";
    case BM_GETCHECK: return "BM_GETCHECK";
    case BM_SETCHECK: return "BM_SETCHECK";
    case BM_SETIMAGE: return "BM_SETIMAGE";
    case BM_CLICK: return "BM_CLICK";
    case STM_SETICON: return "STM_SETICON";
    case TCM_GETCURSEL: return "TCM_GETCURSEL";
    case TCM_SETCURSEL: return "TCM_SETCURSEL";
    default: return nullptr;
  }
}

const char* winNotifyName(UINT message, UINT code, int controlKind) {
  auto kind = static_cast<WndKind>(controlKind);
  if (message == WM_NOTIFY) {
    switch (code) {
      case NM_CLICK: return "NM_CLICK";
      case NM_DBLCLK: return "NM_DBLCLK";
      case NM_RETURN: return "NM_RETURN";
      case NM_RCLICK: return "NM_RCLICK";
      case NM_SETFOCUS: return "NM_SETFOCUS";
      case NM_KILLFOCUS: return "NM_KILLFOCUS";
      case LVN_ITEMCHANGING: return "LVN_ITEMCHANGING";
      case LVN_ITEMCHANGED: return "LVN_ITEMCHANGED";
      case LVN_DELETEITEM: return "LVN_DELETEITEM";
      case LVN_BEGINDRAG: return "LVN_BEGINDRAG";
      case LVN_KEYDOWN: return "LVN_KEYDOWN";
      case LVN_BEGINLABELEDIT: return "LVN_BEGINLABELEDIT";
      case LVN_ENDLABELEDIT: return "LVN_ENDLABELEDIT";
      case TVN_ITEMCHANGED: return "TVN_ITEMCHANGED";
      case TVN_SELCHANGING: return "TVN_SELCHANGING";
      case TVN_SELCHANGED: return "TVN_SELCHANGED";
      case TVN_ITEMEXPANDED: return "TVN_ITEMEXPANDED";
      case TCN_SELCHANGE: return "TCN_SELCHANGE";
      case TCN_SELCHANGING: return "TCN_SELCHANGING";
      default: return nullptr;
    }
  }
  switch (kind) {
    case WndKind::PushButton:
    case WndKind::CheckBox:
    case WndKind::RadioButton:
      return code == BN_CLICKED ? "BN_CLICKED" : code == BN_DOUBLECLICKED ? "BN_DOUBLECLICKED"
           : code == BN_SETFOCUS ? "BN_SETFOCUS" : code == BN_KILLFOCUS ? "BN_KILLFOCUS" : nullptr;
    case WndKind::Text:
    case WndKind::Icon:
    case WndKind::Frame: return code == STN_CLICKED ? "STN_CLICKED" : code == STN_DBLCLK ? "STN_DBLCLK" : nullptr;
    case WndKind::Edit:
      return code == EN_SETFOCUS ? "EN_SETFOCUS" : code == EN_KILLFOCUS ? "EN_KILLFOCUS" : code == EN_CHANGE ? "EN_CHANGE"
           : code == EN_UPDATE ? "EN_UPDATE" : nullptr;
    case WndKind::ComboBox:
      switch (code) {
        case CBN_SELCHANGE: return "CBN_SELCHANGE";
        case CBN_DBLCLK: return "CBN_DBLCLK";
        case CBN_SETFOCUS: return "CBN_SETFOCUS";
        case CBN_KILLFOCUS: return "CBN_KILLFOCUS";
        case CBN_EDITCHANGE: return "CBN_EDITCHANGE";
        case CBN_EDITUPDATE: return "CBN_EDITUPDATE";
        case CBN_SELENDOK: return "CBN_SELENDOK";
        default: return nullptr;
      }
    case WndKind::ListBox:
    case WndKind::CheckListBox:
      switch (code) {
        case LBN_SELCHANGE: return "LBN_SELCHANGE";
        case LBN_DBLCLK: return "LBN_DBLCLK";
        case LBN_SETFOCUS: return "LBN_SETFOCUS";
        case LBN_KILLFOCUS: return "LBN_KILLFOCUS";
        case CLBN_CHKCHANGE: return "CLBN_CHKCHANGE";
        default: return nullptr;
      }
    default: return nullptr;
  }
}
