#include "backend/wx/CWxListBoxMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CCheckListBox.h"
#include "ui/CUserAction.h"

#include <wx/checklst.h>
#include <wx/listbox.h>

CListBox& CWxListBoxMirror::list() const { return static_cast<CListBox&>(*m_control); }

wxWindow* CWxListBoxMirror::build(wxWindow* parent, const wxRect& rect) {
  m_checks = dynamic_cast<CCheckListBox*>(m_control) != nullptr;
  long style = list().isMultiSelect() ? wxLB_EXTENDED : wxLB_SINGLE;
  if (m_control->GetStyle() & WS_VSCROLL) style |= wxLB_NEEDED_SB;
  wxListBox* box = m_checks ? new wxCheckListBox(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), 0, nullptr, style)
                            : new wxListBox(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), 0, nullptr, style);
  CWnd* control = m_control;
  box->Bind(wxEVT_LISTBOX, [this, control](wxCommandEvent& event) {
    int line = event.GetSelection();
    if (line < 0) return;
    act([control, line] { return CUserAction::select(*control, line); });
  });
  box->Bind(wxEVT_LISTBOX_DCLICK, [this, control](wxCommandEvent& event) {
    int line = event.GetSelection();
    if (line < 0) return;
    act([control, line] { return CUserAction::doubleClick(*control, line); });
  });
  if (m_checks) {
    auto* checks = static_cast<wxCheckListBox*>(box);
    checks->Bind(wxEVT_CHECKLISTBOX, [this, control, checks](wxCommandEvent& event) {
      int line = event.GetSelection();
      bool check = checks->IsChecked(static_cast<unsigned>(line));
      act([control, line, check] { return CUserAction::setCheck(*control, line, check); });
    });
  }
  return box;
}

void CWxListBoxMirror::syncState() {
  CListBox& l = list();
  auto* box = static_cast<wxListBox*>(m_native);
  std::vector<std::wstring> items;
  items.reserve(static_cast<std::size_t>(l.GetCount()));
  for (int i = 0; i < l.GetCount(); ++i) items.push_back(l.GetText(i).str());
  if (!m_itemsShown || items != m_items) {
    wxArrayString strings;
    for (const std::wstring& s : items) strings.Add(wxString(s));
    box->Set(strings);
    m_items = std::move(items);
    m_itemsShown = true;
  }
  int n = l.GetCount();
  if (l.isMultiSelect()) {
    for (int i = 0; i < n; ++i) {
      bool selected = l.GetSel(i) > 0;
      if (box->IsSelected(i) != selected) {
        if (selected) box->SetSelection(i);
        else box->Deselect(i);
      }
    }
  } else {
    int sel = l.GetCurSel();
    if (box->GetSelection() != sel) {
      if (sel >= 0) box->SetSelection(sel);
      else box->SetSelection(wxNOT_FOUND);
    }
  }
  if (auto* c = dynamic_cast<CCheckListBox*>(&l)) {
    auto* checks = static_cast<wxCheckListBox*>(m_native);
    for (int i = 0; i < n; ++i) {
      bool checked = c->GetCheck(i) == BST_CHECKED;
      if (checks->IsChecked(static_cast<unsigned>(i)) != checked) checks->Check(static_cast<unsigned>(i), checked);
    }
  }
}
