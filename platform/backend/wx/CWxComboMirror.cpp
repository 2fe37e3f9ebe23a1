#include "backend/wx/CWxComboMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CComboBox.h"
#include "ui/CUserAction.h"

#include <wx/choice.h>
#include <wx/combobox.h>

CComboBox& CWxComboMirror::combo() const { return static_cast<CComboBox&>(*m_control); }

wxRect CWxComboMirror::placement() const {
  wxRect r = CWxMirror::placement();
  // A closed combo is as high as an edit field of 14 dialog units.
  r.height = std::min(r.height, m_window.units().y(14));
  return r;
}

wxWindow* CWxComboMirror::build(wxWindow* parent, const wxRect& rect) {
  CWnd* control = m_control;
  m_choice = !combo().hasEdit();
  if (m_choice) {
    auto* choice = new wxChoice(parent, wxID_ANY, rect.GetPosition(), rect.GetSize());
    choice->Bind(wxEVT_CHOICE, [this, control](wxCommandEvent& event) {
      int line = event.GetSelection();
      act([control, line] { return CUserAction::select(*control, line); });
    });
    return choice;
  }
  auto* box = new wxComboBox(parent, wxID_ANY, wxString(), rect.GetPosition(), rect.GetSize(), 0, nullptr, wxCB_DROPDOWN);
  box->Bind(wxEVT_COMBOBOX, [this, control](wxCommandEvent& event) {
    int line = event.GetSelection();
    act([control, line] { return CUserAction::select(*control, line); });
  });
  box->Bind(wxEVT_TEXT, [this, control, box](wxCommandEvent&) {
    std::wstring value = box->GetValue().ToStdWstring();
    if (value == control->GetWindowText().str()) return;
    // Picking a line changes the field too; the pick itself follows as its own event.
    int picked = box->GetSelection();
    if (picked != wxNOT_FOUND && box->GetString(static_cast<unsigned>(picked)) == box->GetValue()) return;
    act([control, value] { return CUserAction::type(*control, CZelString(value)); });
  });
  return box;
}

void CWxComboMirror::syncState() {
  CComboBox& c = combo();
  std::vector<std::wstring> items;
  items.reserve(static_cast<std::size_t>(c.GetCount()));
  for (int i = 0; i < c.GetCount(); ++i) items.push_back(c.GetLBText(i).str());
  if (!m_itemsShown || items != m_items) {
    wxArrayString strings;
    for (const std::wstring& s : items) strings.Add(wxString(s));
    if (m_choice) static_cast<wxChoice*>(m_native)->Set(strings);
    else {
      auto* box = static_cast<wxComboBox*>(m_native);
      wxString keep = box->GetValue();
      box->Set(strings);
      box->ChangeValue(keep);
    }
    m_items = std::move(items);
    m_itemsShown = true;
  }
  int sel = c.GetCurSel();
  if (m_choice) {
    auto* choice = static_cast<wxChoice*>(m_native);
    if (choice->GetSelection() != sel) choice->SetSelection(sel);
    return;
  }
  auto* box = static_cast<wxComboBox*>(m_native);
  if (sel >= 0 && box->GetSelection() != sel) box->SetSelection(sel);
  wxString text(c.GetWindowText().str());
  if (box->GetValue() != text) box->ChangeValue(text);
}
