#include "ui/CUserAction.h"

#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CDialog.h"
#include "ui/CEdit.h"
#include "ui/CLinkCtrl.h"
#include "ui/CListCtrl.h"
#include "ui/CStatic.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"

#include <cwctype>

namespace {

std::string what(const CWnd& w) { return std::string(w.kindName()) + " " + std::to_string(w.GetDlgCtrlID()); }

std::string outOfRange(const CWnd& w, int line, int count) {
  return what(w) + " has no line " + std::to_string(line) + " (it has " + std::to_string(count) + ")";
}

std::string noLines(const CWnd& w) { return what(w) + " has no lines to select"; }

}  // namespace

std::string CUserAction::unreachable(const CWnd& control) {
  if (!control.GetSafeHwnd()) return what(control) + " does not exist any more";
  for (const CWnd* w = &control; w; w = w->GetParent()) {
    if (!w->isShownItself()) return w == &control ? what(control) + " is hidden" : what(control) + " is on a hidden page";
    if (!w->IsWindowEnabled()) return w == &control ? what(control) + " is disabled" : what(control) + " is on a disabled page";
    if (w->kind() == WndKind::Dialog && static_cast<const CDialog*>(w)->isModal()) break;
  }
  return {};
}

std::string CUserAction::click(CWnd& control) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  switch (control.kind()) {
    case WndKind::PushButton:
    case WndKind::CheckBox:
    case WndKind::RadioButton: {
      auto* button = dynamic_cast<CButton*>(&control);
      if (!button) return what(control) + " is not a button";
      button->SetFocus();
      if (!button->GetSafeHwnd()) return {};
      button->applyClick();
      button->notifyParent(BN_CLICKED);
      return {};
    }
    case WndKind::Text:
    case WndKind::Icon:
    case WndKind::Frame:
      if (auto* s = dynamic_cast<CStatic*>(&control); s && s->notifies()) s->notifyParent(STN_CLICKED);
      return {};
    case WndKind::SysLink:
      if (auto* link = dynamic_cast<CLinkCtrl*>(&control)) link->click();
      return {};
    case WndKind::GroupBox: return {};
    default: control.SetFocus(); return {};
  }
}

std::string CUserAction::type(CWnd& control, const CZelString& text) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (auto* edit = dynamic_cast<CEdit*>(&control)) {
    if (edit->isReadOnly()) return what(control) + " is read-only";
    if (edit->GetStyle() & ES_NUMBER)
      for (wchar_t c : text.str())
        if (!std::iswdigit(static_cast<wint_t>(c))) return what(control) + " takes digits only";
    edit->SetFocus();
    if (edit->GetSafeHwnd()) edit->typeText(text);
    return {};
  }
  if (auto* combo = dynamic_cast<CComboBox*>(&control)) {
    if (!combo->hasEdit()) return what(control) + " is a drop-down list: its text cannot be typed";
    combo->SetFocus();
    if (combo->GetSafeHwnd()) combo->typeByUser(text);
    return {};
  }
  return "cannot type into " + what(control);
}

std::string CUserAction::leave(CWnd& control) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (!control.hasFocus()) control.SetFocus();
  // The focus goes to the dialog itself, so that no other control reacts to getting it.
  if (control.GetSafeHwnd() && control.hasFocus()) control.rootWindow()->SetFocus();
  return {};
}

std::string CUserAction::select(CWnd& control, int line) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (auto* combo = dynamic_cast<CComboBox*>(&control)) {
    if (line < 0 || line >= combo->GetCount()) return outOfRange(control, line, combo->GetCount());
    combo->SetFocus();
    combo->selectByUser(line);
    return {};
  }
  if (auto* list = dynamic_cast<CListBox*>(&control)) {
    if (line < 0 || line >= list->GetCount()) return outOfRange(control, line, list->GetCount());
    list->SetFocus();
    list->selectByUser(line);
    return {};
  }
  if (auto* tree = dynamic_cast<CTreeCtrl*>(&control)) {
    std::vector<HTREEITEM> all = tree->allItems();
    if (line < 0 || line >= static_cast<int>(all.size())) return outOfRange(control, line, static_cast<int>(all.size()));
    tree->SetFocus();
    tree->selectByUser(all[static_cast<std::size_t>(line)]);
    return {};
  }
  if (auto* view = dynamic_cast<CListCtrl*>(&control)) {
    if (line < 0 || line >= view->GetItemCount()) return outOfRange(control, line, view->GetItemCount());
    view->SetFocus();
    view->selectByUser(line);
    return {};
  }
  if (auto* tab = dynamic_cast<CTabCtrl*>(&control)) return selectTab(*tab, line);
  return noLines(control);
}

std::string CUserAction::select(CWnd& control, const CZelString& lineText) {
  auto pick = [&](int count, auto textAt) {
    for (int i = 0; i < count; ++i)
      if (textAt(i) == lineText) return i;
    for (int i = 0; i < count; ++i)
      if (textAt(i).match(lineText)) return i;
    return -1;
  };
  int line = -1;
  if (auto* combo = dynamic_cast<CComboBox*>(&control)) line = pick(combo->GetCount(), [&](int i) { return combo->GetLBText(i); });
  else if (auto* list = dynamic_cast<CListBox*>(&control)) line = pick(list->GetCount(), [&](int i) { return list->GetText(i); });
  else if (auto* view = dynamic_cast<CListCtrl*>(&control)) line = pick(view->GetItemCount(), [&](int i) { return view->GetItemText(i, 0); });
  else if (auto* tab = dynamic_cast<CTabCtrl*>(&control)) line = pick(tab->GetItemCount(), [&](int i) { return tab->GetItemText(i); });
  else if (auto* tree = dynamic_cast<CTreeCtrl*>(&control)) line = tree->indexOf(tree->findPath(lineText));
  else return noLines(control);
  if (line < 0) return what(control) + " has no line \"" + lineText.toUtf8() + "\"";
  return select(control, line);
}

std::string CUserAction::doubleClick(CWnd& control, int line) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (auto* list = dynamic_cast<CListBox*>(&control)) {
    if (line < 0 || line >= list->GetCount()) return outOfRange(control, line, list->GetCount());
    list->SetFocus();
    list->doubleClickByUser(line);
    return {};
  }
  if (auto* tree = dynamic_cast<CTreeCtrl*>(&control)) {
    std::vector<HTREEITEM> all = tree->allItems();
    if (line < 0 || line >= static_cast<int>(all.size())) return outOfRange(control, line, static_cast<int>(all.size()));
    tree->SetFocus();
    tree->doubleClickByUser(all[static_cast<std::size_t>(line)]);
    return {};
  }
  if (auto* view = dynamic_cast<CListCtrl*>(&control)) {
    if (line < 0 || line >= view->GetItemCount()) return outOfRange(control, line, view->GetItemCount());
    view->SetFocus();
    view->doubleClickByUser(line);
    return {};
  }
  if (auto* combo = dynamic_cast<CComboBox*>(&control)) {
    if (line < 0 || line >= combo->GetCount()) return outOfRange(control, line, combo->GetCount());
    combo->SetFocus();
    combo->selectByUser(line);
    combo->notifyParent(CBN_DBLCLK);
    return {};
  }
  return noLines(control);
}

std::string CUserAction::setCheck(CWnd& control, int line, bool check) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (auto* list = dynamic_cast<CCheckListBox*>(&control)) {
    if (line < 0 || line >= list->GetCount()) return outOfRange(control, line, list->GetCount());
    if (!list->IsEnabled(line)) return what(control) + ": line " + std::to_string(line) + " is disabled";
    if ((list->GetCheck(line) == BST_CHECKED) != check) list->checkByUser(line, check ? BST_CHECKED : BST_UNCHECKED);
    return {};
  }
  if (auto* view = dynamic_cast<CListCtrl*>(&control)) {
    if (!(view->GetExtendedStyle() & LVS_EX_CHECKBOXES)) return what(control) + " has no check marks";
    if (line < 0 || line >= view->GetItemCount()) return outOfRange(control, line, view->GetItemCount());
    if ((view->GetCheck(line) != 0) != check) view->checkByUser(line, check);
    return {};
  }
  if (auto* tree = dynamic_cast<CTreeCtrl*>(&control)) {
    if (!(tree->GetStyle() & TVS_CHECKBOXES)) return what(control) + " has no check marks";
    std::vector<HTREEITEM> all = tree->allItems();
    if (line < 0 || line >= static_cast<int>(all.size())) return outOfRange(control, line, static_cast<int>(all.size()));
    HTREEITEM node = all[static_cast<std::size_t>(line)];
    if ((tree->GetCheck(node) != 0) != check) tree->checkByUser(node, check);
    return {};
  }
  return what(control) + " has no check marks";
}

std::string CUserAction::selectTab(CTabCtrl& tab, int index) {
  if (std::string why = unreachable(tab); !why.empty()) return why;
  if (index < 0 || index >= tab.GetItemCount()) return what(tab) + " has no tab " + std::to_string(index) + " (it has " + std::to_string(tab.GetItemCount()) + ")";
  tab.selectByUser(index);
  return {};
}

std::string CUserAction::rightClick(CWnd& control, CPoint point) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  if (auto* view = dynamic_cast<CListCtrl*>(&control)) view->rightClickByUser(view->HitTest(point));
  else if (control.kind() == WndKind::TreeView) {
    NMHDR hdr;
    control.notifyParent(hdr, NM_RCLICK);
  }
  if (!control.GetSafeHwnd()) return {};
  CPoint screen = point;
  control.ClientToScreen(&screen);
  control.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(&control), MAKELPARAM(screen.x, screen.y));
  return {};
}

std::string CUserAction::pressKey(CWnd& control, UINT virtualKey) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  control.SetFocus();
  CWnd* target = &control;
  if (auto* combo = dynamic_cast<CComboBox*>(&control); combo && combo->editField()) target = combo->editField();
  MSG msg{target, WM_KEYDOWN, virtualKey, 0};
  for (CWnd* w = target; w; w = w->GetParent()) {
    if (w->PreTranslateMessage(&msg)) return {};
    if (w->kind() == WndKind::Dialog && static_cast<CDialog*>(w)->isModal()) break;
  }
  target->SendMessage(WM_KEYDOWN, virtualKey, 0);
  return {};
}

std::string CUserAction::dragRow(CWnd& control, int from, int to) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  auto* view = dynamic_cast<CListCtrl*>(&control);
  if (!view) return "cannot drag the lines of " + what(control);
  int n = view->GetItemCount();
  if (from < 0 || from >= n) return outOfRange(control, from, n);
  if (to < 0 || to >= n) return outOfRange(control, to, n);
  CRect a, b;
  view->EnsureVisible(from, FALSE);
  view->GetItemRect(from, &a, LVIR_BOUNDS);
  view->GetItemRect(to, &b, LVIR_BOUNDS);
  CPoint p = a.CenterPoint(), q = b.CenterPoint();
  view->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(p.x, p.y));
  view->SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(q.x, q.y));
  view->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(q.x, q.y));
  return {};
}

std::string CUserAction::editLabel(CWnd& control, int line, const CZelString& text) {
  if (std::string why = unreachable(control); !why.empty()) return why;
  auto* view = dynamic_cast<CListCtrl*>(&control);
  if (!view) return "cannot edit the lines of " + what(control);
  if (view->editingRow() != line) {
    if (!(view->GetStyle() & LVS_EDITLABELS)) return what(control) + " does not let its lines be edited";
    if (line < 0 || line >= view->GetItemCount()) return outOfRange(control, line, view->GetItemCount());
    if (!view->EditLabel(line)) return what(control) + " refused to edit line " + std::to_string(line);
  }
  view->endLabelEdit(&text);
  return {};
}
