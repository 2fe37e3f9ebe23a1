#include "ui/CControlState.h"

#include "ui/CButton.h"
#include "ui/CCheckListBox.h"
#include "ui/CComboBox.h"
#include "ui/CEdit.h"
#include "ui/CLinkCtrl.h"
#include "ui/CListCtrl.h"
#include "ui/CStatic.h"
#include "ui/CTabCtrl.h"
#include "ui/CTreeCtrl.h"

namespace {

std::string quoted(const CZelString& s) {
  std::string out = "\"";
  for (char c : s.toUtf8()) {
    if (c == '"' || c == '\\') out += '\\';
    if (c == '\n') {
      out += "\\n";
      continue;
    }
    out += c;
  }
  return out + "\"";
}

}  // namespace

CZelString CControlState::text(const CWnd& control) {
  if (auto* list = dynamic_cast<const CListBox*>(&control)) return list->GetText(list->GetCurSel());
  if (auto* tree = dynamic_cast<const CTreeCtrl*>(&control)) return tree->GetItemText(tree->GetSelectedItem());
  if (auto* view = dynamic_cast<const CListCtrl*>(&control)) return view->GetItemText(view->GetNextItem(-1, LVNI_SELECTED), 0);
  if (auto* tab = dynamic_cast<const CTabCtrl*>(&control)) return tab->GetItemText(tab->GetCurSel());
  if (auto* link = dynamic_cast<const CLinkCtrl*>(&control)) return link->displayText();
  return control.GetWindowText();
}

std::optional<int> CControlState::itemCount(const CWnd& control) {
  if (auto* combo = dynamic_cast<const CComboBox*>(&control)) return combo->GetCount();
  if (auto* list = dynamic_cast<const CListBox*>(&control)) return list->GetCount();
  if (auto* tree = dynamic_cast<const CTreeCtrl*>(&control)) return static_cast<int>(tree->GetCount());
  if (auto* view = dynamic_cast<const CListCtrl*>(&control)) return view->GetItemCount();
  if (auto* tab = dynamic_cast<const CTabCtrl*>(&control)) return tab->GetItemCount();
  return std::nullopt;
}

std::optional<CZelString> CControlState::itemText(const CWnd& control, int line) {
  if (auto* combo = dynamic_cast<const CComboBox*>(&control)) return combo->GetLBText(line);
  if (auto* list = dynamic_cast<const CListBox*>(&control)) return list->GetText(line);
  if (auto* tree = dynamic_cast<const CTreeCtrl*>(&control)) {
    std::vector<HTREEITEM> all = tree->allItems();
    if (line < 0 || line >= static_cast<int>(all.size())) return CZelString();
    return tree->pathOf(all[static_cast<std::size_t>(line)]);
  }
  if (auto* view = dynamic_cast<const CListCtrl*>(&control)) {
    CZelString row;
    for (int c = 0; c < std::max(1, view->columnCount()); ++c) {
      if (c) row += L" | ";
      row += view->GetItemText(line, c);
    }
    return row;
  }
  if (auto* tab = dynamic_cast<const CTabCtrl*>(&control)) return tab->GetItemText(line);
  return std::nullopt;
}

std::optional<int> CControlState::selected(const CWnd& control) {
  if (auto* combo = dynamic_cast<const CComboBox*>(&control)) return combo->GetCurSel();
  if (auto* list = dynamic_cast<const CListBox*>(&control)) return list->GetCurSel();
  if (auto* tree = dynamic_cast<const CTreeCtrl*>(&control)) return tree->indexOf(tree->GetSelectedItem());
  if (auto* view = dynamic_cast<const CListCtrl*>(&control)) return view->GetNextItem(-1, LVNI_SELECTED);
  if (auto* tab = dynamic_cast<const CTabCtrl*>(&control)) return tab->GetCurSel();
  return std::nullopt;
}

std::optional<int> CControlState::check(const CWnd& control, int line) {
  if (line < 0) {
    if (auto* button = dynamic_cast<const CButton*>(&control)) return button->GetCheck();
    return std::nullopt;
  }
  if (auto* list = dynamic_cast<const CCheckListBox*>(&control)) return list->GetCheck(line);
  if (auto* view = dynamic_cast<const CListCtrl*>(&control)) return view->GetCheck(line) ? 1 : 0;
  if (auto* tree = dynamic_cast<const CTreeCtrl*>(&control)) {
    std::vector<HTREEITEM> all = tree->allItems();
    if (line >= static_cast<int>(all.size())) return std::nullopt;
    return tree->GetCheck(all[static_cast<std::size_t>(line)]) ? 1 : 0;
  }
  return std::nullopt;
}

std::string CControlState::dump(const CWnd& control) {
  std::string out = std::to_string(control.GetDlgCtrlID()) + " " + control.kindName() + " " + quoted(text(control));
  out += control.IsWindowEnabled() ? " enabled" : " disabled";
  out += control.isShownItself() ? (control.IsWindowVisible() ? " shown" : " shown-on-hidden-page") : " hidden";
  if (control.hasFocus()) out += " focused";
  if (auto* edit = dynamic_cast<const CEdit*>(&control); edit && edit->GetModify()) out += " modified";
  if (auto c = check(control, -1)) out += *c == 1 ? " checked" : *c == 2 ? " indeterminate" : " unchecked";
  if (control.imageId()) out += " icon=" + std::to_string(control.imageId());
  if (auto* s = dynamic_cast<const CStatic*>(&control); s && !s->picture().isEmpty()) out += " picture=" + quoted(s->picture());
  if (!control.toolTipText().isEmpty()) out += " tooltip=" + quoted(control.toolTipText());
  const CRect& r = control.dialogUnitRect();
  out += " rect=" + std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," + std::to_string(r.bottom);
  if (auto n = itemCount(control)) {
    out += " selected=" + std::to_string(selected(control).value_or(-1)) + " items=[";
    for (int i = 0; i < *n; ++i) {
      if (i) out += ", ";
      out += quoted(itemText(control, i).value_or(CZelString()));
      if (auto c = check(control, i); c && dynamic_cast<const CTabCtrl*>(&control) == nullptr &&
                                       (control.kind() == WndKind::CheckListBox || *c))
        out += *c ? " [x]" : " [ ]";
    }
    out += "]";
  }
  return out;
}
